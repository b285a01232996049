#include "cli/call_report.h"

#include "basic/number_text.h"
#include "basic/strings.h"
#include "cli/console.h"
#include "cli/printable.h"

namespace velmar::cli {
namespace {

Json entry_json(const embedded::Asked& asked) {
  return {{"ask", asked.prompt}, {"answer", asked.answer ? Json(*asked.answer) : Json(nullptr)}};
}
Json entry_json(const embedded::Said& said) { return {{"say", said.text}}; }

Json handles_json(const std::vector<drawing::Handle>& handles) {
  Json json = Json::array();
  for (const drawing::Handle handle : handles) json.push_back(drawing::handle_text(handle));
  return json;
}

Json changes_json(const DrawingChanges& drawing) {
  return {{"drawing", drawing.drawing},
          {"added", handles_json(drawing.changes.added)},
          {"modified", handles_json(drawing.changes.modified)},
          {"erased", handles_json(drawing.changes.erased)}};
}

Json changes_json(const std::vector<DrawingChanges>& drawings) {
  Json changes = Json::array();
  for (const DrawingChanges& drawing : drawings) {
    if (!drawing.changes.empty()) changes.push_back(changes_json(drawing));
  }
  return changes;
}

Json error_json(const CallRecord& record) {
  if (record.failure) return to_json(*record.failure);
  if (record.drawing_failure) return drawing_error(*record.drawing_failure);
  return nullptr;
}

struct ToText {
  std::string operator()(basic::Empty) const { return {}; }
  std::string operator()(basic::Null) const { return {}; }
  std::string operator()(basic::LeftOut) const { return {}; }
  std::string operator()(const basic::Reference&) const { return {}; }
  std::string operator()(bool truth) const { return truth ? "true" : "false"; }
  std::string operator()(std::int16_t number) const { return std::to_string(number); }
  std::string operator()(std::int32_t number) const { return std::to_string(number); }
  std::string operator()(double number) const { return basic::general(number); }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(const basic::Doubles& numbers) const {
    return (*this)(basic::List(numbers.begin(), numbers.end()));
  }
  std::string operator()(const basic::List& list) const {
    std::string all;
    for (const basic::Value& item : list) {
      if (!all.empty()) all += ",";
      all += std::visit(*this, item.content());
    }
    return all;
  }
};

/// Without the line breaks at both ends, and with plain line feeds inside.
std::string message_text(std::string_view said) {
  constexpr std::string_view breaks = "\r\n";
  const std::size_t begin = said.find_first_not_of(breaks);
  if (begin == std::string_view::npos) return {};
  said = said.substr(begin, said.find_last_not_of(breaks) - begin + 1);
  return basic::replace(said, "\r\n", "\n");
}

std::string changes_text(const DrawingChanges& drawing) {
  const auto& [added, modified, erased] = drawing.changes;
  std::string text = std::to_string(modified.size()) + " modified, " +
                     std::to_string(added.size()) + " added, " + std::to_string(erased.size()) +
                     " erased in " + printable(drawing.drawing);
  if (drawing.only_others)
    return "no entities but other data changed in " + printable(drawing.drawing);
  if (!drawing.saved_to.empty()) text += "; saved to " + printable(drawing.saved_to);
  return text;
}

}  // namespace

Json call_json(const CallRecord& record) {
  Json arguments = Json::object();
  const std::span<const Parameter> parameters = record.method->parameters();
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    arguments[std::string(parameters[i].name)] = to_json(record.arguments[i]);
  }
  Json transcript = Json::array();
  for (const auto& entry : record.transcript) {
    transcript.push_back(std::visit([](const auto& kind) { return entry_json(kind); }, entry));
  }
  Json json = {{"method", record.method->name},
               {"result", to_json(record.result)},
               {"arguments", arguments},
               {"transcript", transcript},
               {"changes", changes_json(record.drawings)},
               {"error", error_json(record)}};
  if (!record.refused.empty()) json["refused"] = record.refused;
  return json;
}

Json script_json(const std::string& file, const CallRecord& all) {
  return {{"script", file}, {"changes", changes_json(all.drawings)}, {"error", error_json(all)}};
}

std::string value_text(const basic::Value& value) { return std::visit(ToText{}, value.content()); }

std::string call_text(const CallRecord& record) {
  std::string text;
  for (const auto& entry : record.transcript) {
    const auto* const said = std::get_if<embedded::Said>(&entry);
    const std::string message = said != nullptr ? message_text(said->text) : std::string();
    if (!message.empty()) text += message + "\n";
  }
  const std::string result = value_text(record.result);
  const bool has_text = record.result.is<std::string>();
  if (!result.empty() || has_text) text += result + "\n";
  for (const DrawingChanges& drawing : record.drawings) text += changes_text(drawing) + "\n";
  return text;
}

std::string written_back_text(const CallRecord& record) {
  std::string text;
  const std::span<const Parameter> parameters = record.method->parameters();
  for (std::size_t i = 0; i < record.given.size(); ++i) {
    if (!parameters[i].by_reference) continue;
    const std::string now = value_text(record.arguments[i]);
    if (now == value_text(record.given[i])) continue;
    text += std::string(parameters[i].name) + " = " + now + "\n";
  }
  return text;
}

std::string failure_text(const basic::Failure& failure) {
  return "error " + std::to_string(failure.number) + ": " + printable(failure.description) + " (" +
         printable(failure.source) + ")";
}

void tell_refused(const CallRecord& record) {
  for (const std::string& why : record.refused) {
    // The failure that ended the method is told as that.
    if (record.failure && record.failure->description.ends_with(why)) continue;
    complain(printable(why));
  }
}

}  // namespace velmar::cli
