#include "cli/info_report.h"

#include <numeric>

#include "basic/number_text.h"
#include "cli/printable.h"
#include "cli/text_table.h"
#include "cli/warnings.h"

namespace velmar::cli {
namespace {

using Side = TextTable::Side;

Json counts_json(const KindCounts& counts) {
  Json json = Json::object();
  for (const auto& [kind, count] : counts) json[kind] = count;
  return json;
}

Json layer_json(const LayerSurvey& layer) {
  return {{"name", layer.row.name},
          {"color", std::abs(layer.row.color)},
          {"linetype", layer.row.linetype},
          {"on", layer.row.on()},
          {"frozen", layer.row.frozen()},
          {"locked", layer.row.locked()},
          {"entities", counts_json(layer.entities)}};
}

Json point_json(drawing::Point p) { return {p.x, p.y, p.z}; }

Json warning_json(const drawing::Warning& warning) {
  const bool has_handle = warning.handle != 0;
  return {{"line", warning.line != 0 ? Json(warning.line) : Json(nullptr)},
          {"handle", has_handle ? Json(drawing::handle_text(warning.handle)) : Json(nullptr)},
          {"text", warning.text}};
}

std::size_t total(const KindCounts& counts) {
  return std::accumulate(counts.begin(), counts.end(), std::size_t{0},
                         [](std::size_t sum, const auto& kind) { return sum + kind.second; });
}

std::string point_text(drawing::Point p) {
  return basic::general(p.x) + "," + basic::general(p.y) + "," + basic::general(p.z);
}

std::string heading(std::string_view title, std::size_t count) {
  return "\n" + std::string(title) + ": " + std::to_string(count) + "\n";
}

std::string state_text(const drawing::LayerRow& layer) {
  std::string state;
  if (!layer.on()) state += " off";
  if (layer.frozen()) state += " frozen";
  if (layer.locked()) state += " locked";
  return state.empty() ? state : state.substr(1);
}

}  // namespace

std::string layers_text(const std::vector<LayerSurvey>& layers) {
  if (layers.empty()) return heading("layers", 0);
  TextTable table({Side::left, Side::right, Side::left, Side::right, Side::left});
  table.add({"name", "colour", "linetype", "entities", "state"});
  for (const LayerSurvey& layer : layers) {
    table.add({printable(layer.row.name), std::to_string(std::abs(layer.row.color)),
               printable(layer.row.linetype), std::to_string(total(layer.entities)),
               state_text(layer.row)});
  }
  return heading("layers", layers.size()) + table.text(2);
}

namespace {

std::string layouts_text(const std::vector<LayoutSurvey>& layouts) {
  TextTable table({Side::left, Side::right, Side::right});
  table.add({"name", "tab", "entities"});
  for (const LayoutSurvey& layout : layouts) {
    table.add(
        {printable(layout.name), std::to_string(layout.tab), std::to_string(layout.entities)});
  }
  return heading("layouts", layouts.size()) + table.text(2);
}

// Anonymous blocks (of dimensions, tables and the like) come in hundreds: they are only counted.
std::string blocks_text(const std::vector<BlockSurvey>& blocks) {
  TextTable table({Side::left, Side::right, Side::right, Side::left});
  table.add({"name", "entities", "inserts", ""});
  std::size_t anonymous = 0;
  for (const BlockSurvey& block : blocks) {
    if (block.name.starts_with('*')) {
      ++anonymous;
      continue;
    }
    table.add({printable(block.name), std::to_string(block.entities), std::to_string(block.inserts),
               block.xref ? "xref" : ""});
  }
  std::string text = heading("blocks", blocks.size());
  if (anonymous < blocks.size()) text += table.text(2);
  if (anonymous > 0) text += "  and " + std::to_string(anonymous) + " anonymous\n";
  return text;
}

}  // namespace

Json info_json(std::string_view file, const Survey& survey) {
  Json json = {{"file", file},
               {"version", survey.version},
               {"form", survey.binary ? "binary" : "text"},
               {"codepage", survey.code_page.empty() ? Json(nullptr) : Json(survey.code_page)},
               {"records", survey.records},
               {"entities", counts_json(survey.entities)},
               {"layers", Json::array()},
               {"layouts", Json::array()},
               {"blocks", Json::array()},
               {"extents", nullptr},
               {"warnings", Json::array()}};
  for (const LayerSurvey& layer : survey.layers) json["layers"].push_back(layer_json(layer));
  for (const LayoutSurvey& layout : survey.layouts) {
    json["layouts"].push_back(
        {{"name", layout.name}, {"tab", layout.tab}, {"entities", layout.entities}});
  }
  for (const BlockSurvey& block : survey.blocks) {
    json["blocks"].push_back({{"name", block.name},
                              {"entities", block.entities},
                              {"xref", block.xref},
                              {"inserts", block.inserts}});
  }
  if (const auto& box = survey.extents) {
    json["extents"] = Json::array({point_json(box->min), point_json(box->max)});
  }
  for (const auto& warning : survey.warnings) json["warnings"].push_back(warning_json(warning));
  return json;
}

Json faults_json(std::string_view file, const std::vector<drawing::Warning>& faults) {
  Json json = {{"file", file}, {"faults", Json::array()}};
  for (const auto& fault : faults) json["faults"].push_back(warning_json(fault));
  return json;
}

std::string faults_text(std::string_view file, const std::vector<drawing::Warning>& faults,
                        bool binary) {
  if (faults.empty()) return printable(file) + ": no faults\n";
  std::string text = printable(file) + ": " + std::to_string(faults.size()) +
                     (faults.size() == 1 ? " fault\n" : " faults\n");
  for (const auto& fault : faults) text += "  " + warning_text(fault, binary) + "\n";
  return text;
}

std::string info_text(std::string_view file, const Survey& survey) {
  std::string text = printable(file) + ": " + survey.version +
                     (survey.binary ? ", binary, " : ", text, ") +
                     (survey.code_page.empty() ? "" : printable(survey.code_page) + ", ") +
                     std::to_string(survey.records) + " records\n";
  if (const auto& box = survey.extents) {
    text += "extents " + point_text(box->min) + " to " + point_text(box->max) + "\n";
  }
  text += heading("model space", total(survey.entities));
  TextTable kinds({Side::left, Side::right});
  for (const auto& [kind, count] : survey.entities) {
    kinds.add({printable(kind), std::to_string(count)});
  }
  text += kinds.text(2) + layers_text(survey.layers) + layouts_text(survey.layouts) +
          blocks_text(survey.blocks);
  if (!survey.warnings.empty()) text += heading("warnings", survey.warnings.size());
  for (const auto& warning : survey.warnings) {
    text += "  " + warning_text(warning, survey.binary) + "\n";
  }
  return text;
}

}  // namespace velmar::cli
