// The counting commands on every sound drawing of the corpus, against what another program counted:
// all kinds, all layers, all pairs of them.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "basic/strings.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "embedded/application.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"

namespace velmar {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

/// Kinds that have a code and one class for all their entities.
struct CodedKind {
  const char *code, *class_name, *file_name;
};
constexpr CodedKind coded_kinds[] = {
    {"L", "AcDbLine", "LINE"},   {"c", "AcDbCircle", "CIRCLE"},
    {"A", "AcDbArc", "ARC"},     {"pl", "AcDbPolyline", "LWPOLYLINE"},
    {"T", "AcDbText", "TEXT"},   {"e", "AcDbEllipse", "ELLIPSE"},
    {"H", "AcDbHatch", "HATCH"}, {"AcDbMText", "AcDbMText", "MTEXT"}};

class Counts {
 public:
  Counts(const fs::path& drawing, const json& facts) : facts_(facts) {
    const auto application = embedded::start(input_, {{drawing}});
    install_host_factory([application] { return application; });
    release_host_application();
    for (const json& row : facts.value("model_by_layer_type", json::array())) {
      if (row[0] == "?") {  // of a kind that the other program did not take apart
        of_unknown_layer_ += row[2].get<int>();
        continue;
      }
      by_layer_[row[0]] += row[2].get<int>();
      by_kind_and_layer_[row[1]][row[0]] += row[2].get<int>();
    }
  }
  Counts(const Counts&) = delete;
  Counts& operator=(const Counts&) = delete;
  ~Counts() {
    release_host_application();
    install_host_factory({});
  }

  void check() {
    Velmar16 velmar;
    for (const auto& [class_name, count] : facts_["model_by_class"].items()) {
      EXPECT_EQ(velmar.GetNType(class_name), count) << class_name;
    }
    for (const auto& [layer, count] : by_layer_) {
      EXPECT_GE(velmar.GetNOLayer(layer), count) << layer;
      EXPECT_LE(velmar.GetNOLayer(layer), count + of_unknown_layer_) << layer;
    }
    for (const CodedKind& kind : coded_kinds) {
      EXPECT_EQ(velmar.GetNType(kind.code), facts_["model_by_class"].value(kind.class_name, 0));
      for (const auto& [layer, count] : by_layer_) {
        EXPECT_EQ(velmar.GetNTypeLayer(kind.code, layer), on_layers_with(kind, layer))
            << kind.code << " " << layer;
      }
    }
  }

 private:
  int on_layers_with(const CodedKind& kind, const std::string& part) {
    int sum = 0;
    for (const auto& [layer, count] : by_kind_and_layer_[kind.file_name]) {
      if (basic::contains_ignoring_case(layer, part)) sum += count;
    }
    return sum;
  }

  embedded::ScriptedInput input_;
  const json& facts_;
  std::map<std::string, int> by_layer_;
  int of_unknown_layer_ = 0;
  std::map<std::string, std::map<std::string, int>> by_kind_and_layer_;
};

TEST(CorpusCounts, AreThoseOfTheFacts) {
  int drawings = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(VELMAR_CORPUS) / "facts")) {
    const json facts = json::parse(std::ifstream(entry.path()));
    const fs::path drawing = fs::path(VELMAR_CORPUS) / facts["file"].get<std::string>();
    if (facts.value("load", "") != "readfile" || !fs::exists(drawing)) continue;
    SCOPED_TRACE(drawing);
    Counts(drawing, facts).check();
    ++drawings;
  }
  EXPECT_GT(drawings, 25);
}

}  // namespace
}  // namespace velmar
