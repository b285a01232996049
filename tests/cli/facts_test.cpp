// What `info` tells of each drawing of the corpus, against facts that another reader found.

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "cli/program.h"

namespace velmar::cli {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;

json read_json(const fs::path& path) { return json::parse(read_file(path)); }

std::vector<std::string> names_of_facts() {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(fs::path(VELMAR_CORPUS) / "facts")) {
    if (read_json(entry.path()).value("load", "") == "readfile") {
      names.push_back(entry.path().filename());
    }
  }
  std::sort(names.begin(), names.end());
  return names;
}

json info_of(const std::string& file) {
  const TemporaryFolder work;
  const fs::path script = work.path() / "cmd";
  std::ofstream(script) << "velmar info --json \"$CORPUS/" << file << "\"\n";
  const Outcome outcome = run_script(script, work.path());
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  return json::parse(outcome.out);
}

class Facts : public testing::TestWithParam<std::string> {
 protected:
  const json facts = read_json(fs::path(VELMAR_CORPUS) / "facts" / GetParam());
  const json info = info_of(facts["file"]);
};

TEST_P(Facts, ModelSpaceIsCountedByKindAndLayer) {
  EXPECT_EQ(info["entities"], facts["model_by_type"]);
  std::map<std::string, json> expected;
  for (const json& row : facts["model_by_layer_type"]) expected[row[0]][row[1]] = row[2];
  std::map<std::string, json> counted;
  for (const json& layer : info["layers"]) {
    if (!layer["entities"].empty()) counted[layer["name"]] = layer["entities"];
  }
  EXPECT_EQ(counted, expected);
}

TEST_P(Facts, LayersAreListedInTableOrder) {
  const json& table = facts["layer_table"];
  ASSERT_GE(info["layers"].size(), table.size());
  for (std::size_t i = 0; i < table.size(); ++i) {
    const json& layer = info["layers"][i];
    const int color = table[i][1];
    EXPECT_EQ(layer["name"], table[i][0]);
    EXPECT_EQ(layer["color"], std::abs(color)) << layer["name"];
    EXPECT_EQ(layer["on"], color >= 0) << layer["name"];
    EXPECT_EQ(layer["linetype"], table[i][2]) << layer["name"];
  }
}

TEST_P(Facts, BlocksHaveTheirEntitiesCounted) {
  std::map<std::string, json> counted;
  for (const json& block : info["blocks"]) counted[block["name"]] = block;
  for (const json& block : facts["blocks"]) {
    const std::string name = block["name"];
    ASSERT_TRUE(counted.contains(name)) << name;
    EXPECT_EQ(counted[name]["entities"], block["entities"]) << name;
    EXPECT_EQ(counted[name]["xref"], block["isxref"]) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Corpus, Facts, testing::ValuesIn(names_of_facts()), [](const auto& info) {
  std::string name = info.param;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
  return name;
});

}  // namespace
}  // namespace velmar::cli
