#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/action.h"
#include "cli/console.h"
#include "cli/info_report.h"
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

ExitCode check(const InfoOptions& options) {
  ExitCode result = ExitCode::done;
  Json all = Json::array();
  for (const std::string& file : options.drawings) {
    try {
      const drawing::Drawing drawing = drawing::Drawing::open(drawing::utf8_path(file));
      const auto found = faults(drawing);
      if (!found.empty() && result == ExitCode::done) result = ExitCode::method_failed;
      if (options.json) {
        all.push_back(faults_json(file, found));
      } else {
        print(faults_text(file, found, drawing.is_binary()));
      }
    } catch (const drawing::Error& error) {
      result = ExitCode::drawing_failed;
      complain(error.what());
      all.push_back({{"file", file}, {"error", drawing_error(error.what())}});
    }
  }
  if (options.json) print(to_text(all.size() == 1 ? all.front() : all));
  return result;
}

Json survey_json(const std::string& file, bool& failed) {
  try {
    return info_json(file, survey(drawing::Drawing::open(drawing::utf8_path(file))));
  } catch (const drawing::Error& error) {
    failed = true;
    complain(error.what());
    return {{"file", file}, {"error", drawing_error(error.what())}};
  }
}

ExitCode print_json(const std::vector<std::string>& files) {
  bool failed = false;
  Json all = Json::array();
  for (const std::string& file : files) all.push_back(survey_json(file, failed));
  print(to_text(files.size() == 1 ? all.front() : all));
  return failed ? ExitCode::drawing_failed : ExitCode::done;
}

ExitCode print_tables(const std::vector<std::string>& files) {
  bool failed = false;
  bool first = true;
  for (const std::string& file : files) {
    try {
      const std::string text =
          info_text(file, survey(drawing::Drawing::open(drawing::utf8_path(file))));
      print(first ? text : "\n" + text);
      first = false;
    } catch (const drawing::Error& error) {
      failed = true;
      complain(error.what());
    }
  }
  return failed ? ExitCode::drawing_failed : ExitCode::done;
}

ExitCode print_sums(const InfoOptions& options) {
  ExitCode result = ExitCode::done;
  Json all = Json::array();
  bool first = true;
  for (const std::string& file : options.drawings) {
    try {
      const auto found = sums(drawing::Drawing::open(drawing::utf8_path(file)));
      if (options.json) all.push_back(sums_json(file, found));
      if (options.csv) print(sums_csv(file, found, first));
      if (!options.json && !options.csv) print((first ? "" : "\n") + sums_text(file, found));
      first = false;
    } catch (const drawing::Error& error) {
      result = ExitCode::drawing_failed;
      complain(error.what());
      all.push_back({{"file", file}, {"error", drawing_error(error.what())}});
    }
  }
  if (options.json) print(to_text(all.size() == 1 ? all.front() : all));
  return result;
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
      return options->json ? print_json(options->drawings) : print_tables(options->drawings);
    };
  });
}

}  // namespace velmar::cli
