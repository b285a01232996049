#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cli/action.h"
#include "cli/console.h"
#include "cli/diff_picture.h"
#include "cli/json.h"
#include "cli/printable.h"
#include "cli/text_table.h"
#include "drawing/comparison.h"
#include "drawing/name.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

using drawing::Difference;

struct DiffOptions {
  std::string a, b;
  double tolerance = 0;
  bool json = false;
  PictureOptions picture;
};

std::string_view kind_words(Difference::Kind kind) {
  switch (kind) {
    case Difference::Kind::removed:
      return "removed";
    case Difference::Kind::added:
      return "added";
    case Difference::Kind::changed:
      break;
  }
  return "changed";
}

/// The drawing and the record that a difference is best told of.
struct Told {
  const drawing::Drawing& drawing;
  drawing::RecordId record;
};

class DiffReport {
 public:
  DiffReport(const drawing::Drawing& a, const drawing::Drawing& b, const DiffOptions& options)
      : a_(a), b_(b), options_(options), found_(compare(a, b, options.tolerance)) {}

  const drawing::Comparison& found() const { return found_; }
  bool same() const { return found_.differences.empty(); }

  std::string text() const {
    std::string text;
    for (const Difference& difference : found_.differences) text += line(difference);
    return text + summary() + "\n";
  }

  Json json() const {
    Json differences = Json::array();
    for (const Difference& difference : found_.differences)
      differences.push_back(object(difference));
    return {
        {"a", options_.a}, {"b", options_.b}, {"same", found_.same}, {"differences", differences}};
  }

 private:
  Told told(const Difference& difference) const {
    if (difference.a != drawing::RecordId::none) return {a_, difference.a};
    return {b_, difference.b};
  }
  /// "LINE #2F on Walls", "LAYER Walls".
  std::string subject(const Difference& difference) const {
    if (!difference.name.empty()) return difference.what + " " + difference.name;
    const auto [drawing, id] = told(difference);
    const drawing::Record& record = drawing.record(id);
    std::string text = difference.what + " #" + drawing::handle_text(record.handle);
    if (record.layer != drawing::LayerId::none) text += " on " + drawing.layer(record.layer).name;
    if (!drawing::same_name(difference.space, "*Model_Space")) text += " in " + difference.space;
    return text;
  }
  std::string line(const Difference& difference) const {
    std::string text = std::string(kind_words(difference.kind));
    text.resize(9, ' ');
    text += subject(difference);
    std::string_view mark = ": ";
    for (const drawing::ValueDifference& value : difference.values) {
      text.append(mark).append(std::to_string(value.code)).append(" \"" + value.a + "\" -> \"");
      text.append(value.b).append("\"");
      mark = "; ";
    }
    return printable(text) + "\n";
  }
  Json object(const Difference& difference) const {
    Json json = {{"change", kind_words(difference.kind)}, {"what", difference.what}};
    if (!difference.name.empty()) {
      json["name"] = difference.name;
    } else {
      const auto [drawing, id] = told(difference);
      const drawing::Record& record = drawing.record(id);
      json["handle"] = drawing::handle_text(record.handle);
      json["space"] = difference.space;
      if (record.layer != drawing::LayerId::none) json["layer"] = drawing.layer(record.layer).name;
    }
    if (difference.kind != Difference::Kind::changed) return json;
    json["values"] = Json::array();
    for (const drawing::ValueDifference& value : difference.values) {
      json["values"].push_back({{"code", value.code}, {"a", value.a}, {"b", value.b}});
    }
    return json;
  }
  std::string summary() const {
    std::size_t counts[3] = {};
    for (const Difference& difference : found_.differences) {
      ++counts[static_cast<std::size_t>(difference.kind)];
    }
    return std::to_string(counts[2]) + " changed, " + std::to_string(counts[1]) + " added, " +
           std::to_string(counts[0]) + " removed, " + std::to_string(found_.same) +
           " entities the same";
  }

  const drawing::Drawing& a_;
  const drawing::Drawing& b_;
  const DiffOptions& options_;
  drawing::Comparison found_;
};

ExitCode show_difference(const DiffOptions& options) {
  const drawing::Drawing a = drawing::Drawing::open(drawing::utf8_path(options.a));
  const drawing::Drawing b = drawing::Drawing::open(drawing::utf8_path(options.b));
  const DiffReport report(a, b, options);
  if (!options.picture.output.empty()) {
    for (const std::string& warning : draw_differences(a, b, report.found(), options.picture)) {
      complain(printable(warning));
    }
  }
  print(options.json ? to_text(report.json()) : report.text());
  return report.same() ? ExitCode::done : ExitCode::method_failed;
}

}  // namespace

void add_diff(CLI::App& program, Action& action) {
  const auto options = std::make_shared<DiffOptions>();
  CLI::App* const diff =
      program.add_subcommand("diff", "What differs between two drawings, entity by entity");
  diff->footer("Exit codes: 0 nothing differs, 1 something does, 3 a drawing could not be read.");
  diff->add_option("A", options->a, "The one drawing")->required();
  diff->add_option("B", options->b, "The other drawing")->required();
  diff->add_option("--tolerance", options->tolerance,
                   "Numbers at most so far apart are the same (0)")
      ->check(CLI::NonNegativeNumber);
  diff->add_option("--picture", options->picture.output,
                   "OUT.png, .svg or .pdf: model space with what was removed in red, added in "
                   "green, changed in amber; the options below are for the picture");
  options->picture.add_to(*diff);
  diff->add_flag("--json", options->json, "Write JSON");
  diff->callback([options, &action] { action = [options] { return show_difference(*options); }; });
}

}  // namespace velmar::cli
