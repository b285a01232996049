// Runs every folder of cases/: `cmd` is a shell script; `out` (or `out.json`, compared as JSON),
// `err` and `code` are what it must write and end with. Without a file: nothing is written, the
// code is 0. In the files, $CORPUS stands for the folder of drawings.

#include <gmock/gmock.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <vector>

#include "cli/program.h"

namespace velmar::cli {
namespace {

namespace fs = std::filesystem;

const fs::path cases = fs::path(VELMAR_CORPUS).parent_path() / "cli" / "cases";

std::vector<std::string> names_of_cases() {
  std::vector<std::string> names;
  for (const auto& folder : fs::directory_iterator(cases))
    names.push_back(folder.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

std::string with_variables(std::string text) {
  const std::string corpus = VELMAR_CORPUS;
  for (std::size_t at = 0; (at = text.find(corpus, at)) != std::string::npos;) {
    text.replace(at, corpus.size(), "$CORPUS");
  }
  return text;
}

class Case : public testing::TestWithParam<std::string> {};

TEST_P(Case, RunsAsWritten) {
  const fs::path folder = cases / GetParam();
  const TemporaryFolder work;
  const Outcome outcome = run_script(folder / "cmd", work.path());
  if (fs::exists(folder / "out.json")) {
    const auto got = nlohmann::json::parse(with_variables(outcome.out), nullptr, false);
    EXPECT_EQ(got, nlohmann::json::parse(read_file(folder / "out.json"))) << outcome.out;
  } else {
    EXPECT_EQ(with_variables(outcome.out), read_file(folder / "out"));
  }
  EXPECT_EQ(with_variables(outcome.err), read_file(folder / "err"));
  const std::string code = read_file(folder / "code");
  EXPECT_EQ(outcome.code, code.empty() ? 0 : std::stoi(code));
}

INSTANTIATE_TEST_SUITE_P(Program, Case, testing::ValuesIn(names_of_cases()),
                         [](const auto& test) { return test.param; });

}  // namespace
}  // namespace velmar::cli
