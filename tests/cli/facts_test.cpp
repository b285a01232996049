// What `info` tells of each drawing of the corpus, against facts that another reader found.

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
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

json info_of(const std::string& file, const std::string& options = "") {
  const TemporaryFolder work;
  const fs::path script = work.path() / "cmd";
  std::ofstream(script) << "velmar info --json " << options << " \"$CORPUS/" << file << "\"\n";
  const Outcome outcome = run_script(script, work.path());
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  return json::parse(outcome.out);
}

// The other reader does not tell the layer of tables.
constexpr const char* not_told = "?";

/// Layers, and blocks of arrow heads, that the other reader adds where a file has none.
bool may_be_added(const std::string& name) {
  return name == "0" || name == "Defpoints" || name.starts_with('_');
}

std::map<std::string, json> by_name(const json& list) {
  std::map<std::string, json> named;
  for (const json& item : list) named[item["name"]] = item;
  return named;
}

class Facts : public testing::TestWithParam<std::string> {};

TEST_P(Facts, AreWhatInfoTells) {
  const json facts = read_json(fs::path(VELMAR_CORPUS) / "facts" / GetParam());
  const json info = info_of(facts["file"]);

  EXPECT_EQ(info["entities"], facts["model_by_type"]);

  const std::map<std::string, json> layers = by_name(info["layers"]);
  for (const json& row : facts["model_by_layer_type"]) {
    if (row[0] == not_told) continue;
    EXPECT_EQ(layers.at(row[0])["entities"].value(row[1], 0), row[2]) << row;
  }

  std::size_t at = 0;
  for (const json& row : facts["layer_table"]) {
    if (!layers.contains(row[0]) && may_be_added(row[0])) continue;
    const json& layer = layers.at(row[0]);
    const int color = row[1];
    EXPECT_EQ(layer["color"], std::abs(color)) << row;
    EXPECT_EQ(layer["on"], color >= 0) << row;
    EXPECT_EQ(layer["linetype"], row[2]) << row;
    if (!may_be_added(row[0])) {
      while (at < info["layers"].size() && info["layers"][at] != layer) ++at;
    }
    EXPECT_LT(at, info["layers"].size()) << row << " is not in the order of the table";
  }

  const std::map<std::string, json> blocks = by_name(info["blocks"]);
  for (const json& block : facts["blocks"]) {
    const std::string name = block["name"];
    if (!blocks.contains(name) && may_be_added(name)) continue;
    EXPECT_EQ(blocks.at(name)["entities"], block["entities"]) << name;
    EXPECT_EQ(blocks.at(name)["xref"], block["isxref"]) << name;
  }
}

struct MeasuredFact {
  const char* key;
  const char* kind;
  const char* measure;
};
constexpr MeasuredFact measured_facts[] = {{"line_length", "LINE", "length"},
                                           {"arc_length", "ARC", "length"},
                                           {"lwpolyline_area", "LWPOLYLINE", "area"},
                                           {"ellipse_area", "ELLIPSE", "area"},
                                           {"elliptic_arc_area", "ELLIPSE", "area"}};

using Sums = std::map<std::string, double>;  // by kind, measure and layer

TEST_P(Facts, AreWhatTheSumsTell) {
  const json facts = read_json(fs::path(VELMAR_CORPUS) / "facts" / GetParam());
  Sums expected, found;
  for (const MeasuredFact& fact : measured_facts) {
    const json by_layer = facts.value(fact.key, json::object());
    for (const auto& [layer, sum] : by_layer.items()) {
      expected[std::string(fact.kind) + " " + fact.measure + " on " + layer] += sum.get<double>();
    }
  }
  const json told = info_of(facts["file"], "--sums");
  for (const json& row : told["sums"]) {
    for (const char* const measure : {"length", "area"}) {
      if (row[measure].is_null()) continue;
      found[row["kind"].get<std::string>() + " " + measure + " on " +
            row["layer"].get<std::string>()] = row[measure];
    }
    const json& all = facts["model_by_type"];
    EXPECT_LE(row["count"], all.value(row["kind"].get<std::string>(), 0)) << row;
  }
  for (const auto& [what, sum] : expected) {
    EXPECT_NEAR(found[what], sum, 1e-9 + 1e-9 * std::abs(sum)) << what;
  }
}

INSTANTIATE_TEST_SUITE_P(Corpus, Facts, testing::ValuesIn(names_of_facts()), [](const auto& test) {
  std::string name = test.param;
  std::replace_if(
      name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
  return name;
});

}  // namespace
}  // namespace velmar::cli
