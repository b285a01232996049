#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <memory>

#include "cli/action.h"
#include "cli/console.h"
#include "cli/doctor.h"
#include "cli/json.h"
#include "cli/printable.h"
#include "cli/text_table.h"

namespace velmar::cli {
namespace {

std::string_view state_words(Finding::State state) {
  constexpr auto words = std::to_array<std::string_view>({"well", "absent", "wrong"});
  static_assert(words.size() == static_cast<std::size_t>(Finding::State::wrong) + 1);
  return words[static_cast<std::size_t>(state)];
}

std::string findings_text(const std::vector<Finding>& findings) {
  using Side = TextTable::Side;
  TextTable table({Side::left, Side::left, Side::left});
  for (const Finding& finding : findings) {
    table.add({std::string(state_words(finding.state)), finding.subject, printable(finding.text)});
  }
  return table.text();
}

std::string findings_json(const std::vector<Finding>& findings) {
  Json all = Json::array();
  for (const Finding& finding : findings) {
    all.push_back({{"subject", finding.subject},
                   {"state", state_words(finding.state)},
                   {"text", finding.text}});
  }
  return to_text(all);
}

ExitCode report_findings(bool json) {
  const std::vector<Finding> findings = examine();
  print(json ? findings_json(findings) : findings_text(findings));
  const bool wrong = std::ranges::any_of(
      findings, [](const Finding& finding) { return finding.state == Finding::State::wrong; });
  return wrong ? ExitCode::method_failed : ExitCode::done;
}

}  // namespace

void add_doctor(CLI::App& program, Action& action) {
  const auto json = std::make_shared<bool>(false);
  CLI::App* const command = program.add_subcommand(
      "doctor", "Say what of Velmar is set up on this machine; 1 if something is wrong");
  command->add_flag("--json", *json, "Write JSON");
  command->callback([json, &action] { action = [json] { return report_findings(*json); }; });
}

}  // namespace velmar::cli
