#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/action.h"
#include "cli/console.h"
#include "cli/info_report.h"
#include "cli/printable.h"
#include "cli/sums.h"
#include "cli/usage_error.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

struct InfoOptions {
  std::vector<std::string> drawings;
  bool json = false, check = false, sums = false, csv = false;
};

/// --check says what is wrong and nothing else.
std::vector<drawing::Warning> faults(const drawing::Drawing& drawing) {
  std::vector<drawing::Warning> all = drawing.warnings();
  for (auto& list : {drawing.check(), drawing.broken_references()}) {
    all.insert(all.end(), list.begin(), list.end());
  }
  return all;
}

/// Hands each drawing on, with what JSON there is to be of all; tells of those that cannot be read.
/// The exit code is that of an unreadable drawing, else the first that is not "done".
template <class Look>
ExitCode look_at_each(const InfoOptions& options, Look look) {
  ExitCode result = ExitCode::done;
  Json all = Json::array();
  for (const std::string& file : options.drawings) {
    try {
      const ExitCode code = look(file, drawing::Drawing::open(drawing::utf8_path(file)), all);
      if (result == ExitCode::done) result = code;
    } catch (const drawing::Error& error) {
      result = ExitCode::drawing_failed;
      complain(printable(error.what()));
      all.push_back({{"file", file}, {"error", drawing_error(error.what())}});
    }
  }
  if (options.json) print(to_text(all.size() == 1 ? all.front() : all));
  return result;
}

ExitCode check(const InfoOptions& options) {
  return look_at_each(options,
                      [&](const std::string& file, const drawing::Drawing& drawing, Json& all) {
                        const auto found = faults(drawing);
                        if (options.json) {
                          all.push_back(faults_json(file, found));
                        } else {
                          print(faults_text(file, found, drawing.is_binary()));
                        }
                        return found.empty() ? ExitCode::done : ExitCode::method_failed;
                      });
}

ExitCode print_surveys(const InfoOptions& options) {
  bool first = true;
  return look_at_each(options,
                      [&](const std::string& file, const drawing::Drawing& drawing, Json& all) {
                        if (options.json) {
                          all.push_back(info_json(file, survey(drawing)));
                        } else {
                          print((first ? "" : "\n") + info_text(file, survey(drawing)));
                        }
                        first = false;
                        return ExitCode::done;
                      });
}

ExitCode print_sums(const InfoOptions& options) {
  bool first = true;
  return look_at_each(options,
                      [&](const std::string& file, const drawing::Drawing& drawing, Json& all) {
                        const auto found = sums(drawing);
                        if (options.json) all.push_back(sums_json(file, found));
                        if (options.csv) print(sums_csv(file, found, first));
                        if (!options.json && !options.csv)
                          print((first ? "" : "\n") + sums_text(file, found));
                        first = false;
                        return ExitCode::done;
                      });
}

}  // namespace

void add_info(CLI::App& program, Action& action) {
  const auto options = std::make_shared<InfoOptions>();
  CLI::App* const info = program.add_subcommand(
      "info", "Show version, layers, layouts, blocks and entity counts of drawings");
  info->add_option("DRAWING", options->drawings, "Drawings to look at")->required();
  info->add_flag("--json", options->json, "Write JSON: an array for more than one drawing");
  info->add_flag("--check", options->check,
                 "Only tell what is wrong: values, broken references, names without a definition; "
                 "exit code 1 where anything is");
  info->add_flag("--sums", options->sums, "Lengths and areas of model space, by layer and kind");
  info->add_flag("--csv", options->csv, "Write the sums as comma-separated values");
  info->callback([options, &action] {
    if (options->csv && (!options->sums || options->json)) {
      throw UsageError("--csv goes with --sums, and without --json");
    }
    if (options->sums && options->check) throw UsageError("give --sums or --check, not both");
    action = [options] {
      if (options->sums) return print_sums(*options);
      if (options->check) return check(*options);
      return print_surveys(*options);
    };
  });
}

}  // namespace velmar::cli
