// Every step of the commands on texts, layers and lists fails once, on a scripted host.

#include <gtest/gtest.h>

#include <algorithm>

#include "component/fake_host.h"
#include "component/method_table.h"
#include "scenes/fault_sweep.h"

namespace velmar {
namespace {

/// A method and a call of it that succeeds on the scene below.
struct ScriptedCase {
  const char* method;
  std::vector<Value> arguments;
  std::vector<const char*> picks = {"13"};  // handles
  std::vector<Value> answers = {};
};

const Value origin = basic::Doubles{0, 0, 0}, far_point = basic::Doubles{12, 5, 0};

const ScriptedCase scripted_cases[] = {
    {"GetBRec", {"10", "PLW"}},
    {"Del", {"10"}},
    {"GetC", {"10"}},
    {"IDLast", {}},
    {"GetTotalLength", {}},
    {"GetTotalArea", {}},
    {"Angle2P", {0.0, 0.0, 3.0, 4.0}},
    {"DisP", {origin, basic::Doubles{3, 4, 0}}},
    {"Text", {"Section", 0.0, 0.0, 90.0, 2.5, "New", true, std::int32_t{5}, "14"}},
    {"RotateAllText", {}, {"14"}, {15.0}},
    {"ReplaceT", {"one", "two"}},
    {"ReplaceTL", {"one", "", "0"}},
    {"ReplaceInT", {"n", "m", "0"}},
    {"TextBar", {0.0, 0.0, 16.0, "01", std::int16_t{200}, 20.0, "T", "B1"}},
    {"CountInText", {}, {}, {"o"}},
    {"StrechText", {"14", 10.05}},
    {"StrechText", {}, {"14", "15"}, {origin, far_point, origin, far_point}},
    {"ChangeLetterCase", {}, {"14"}, {"L"}},
    {"ChangeLetterCase", {}, {"17"}, {""}},
    {"Joint2Text", {}, {"14", "15"}, {"y", "-"}},
    {"TextIndex", {}, {"14", "15"}, {"L"}},
    {"ReplaceTag", {}, {"16"}, {"TAG", "", "new"}},
    {"Tolerencee", {}, {}, {"0.1%%vA", origin, far_point}},
    {"GetNOLayer", {"0"}},
    {"GetNType", {"L"}},
    {"GetNTypeLayer", {"T", ""}},
    {"Mo2Lr", {12.0, "New", "L"}},
    {"Replace", {"0", true}},
    {"ReplaceLineByType", {}, {"13"}, {2.5}},
    {"Hatch_Layer", {}},
    {"Dim_Layer", {}, {"13"}, {origin, far_point}},
    {"ColLayerObj", {std::int16_t{3}, "0", "T"}},
    {"ColDel", {std::int16_t{0}, "T"}},
    {"ColDelLayer", {std::int16_t{0}, "0", "T"}},
    {"ColorToLayer", {std::int32_t{256}, "New", "T"}},
    {"MLayer", {"New", std::int32_t{5}}},
    {"NmLayer", {"old", "new"}},
};

struct ScriptedScene {
  ScriptedScene(const std::vector<const char*>& picks, const std::vector<Value>& answers) {
    FakeDocument& document = host.document;
    const Bag polyline = document.add_boxed("AcDbPolyline", {}, {4, 2, 0});  // 10
    polyline->properties[Member::Area] = 8.0;
    polyline->properties[Member::Closed] = true;
    document.add("AcDbEllipse", "0", {{Member::Area, 0.5}});  // 11
    document.add("AcDbLine", "0",                             // 12
                 {{Member::Length, 8.0}, {Member::StartPoint, origin}, {Member::EndPoint, origin}});
    document.add("AcDbArc", "0", {{Member::ArcLength, 0.5}});  // 13
    document.add_text("AcDbText", "one");                      // 14
    document.add_text("AcDbText", "two");                      // 15
    add_block_reference();                                     // 16
    document.add_text("AcDbMText", "three");                   // 17
    for (const char* layer : {"0", "A-old", "B-old", "B-new"}) document.add_layer(layer);
    document.add("AcDbCircle", "B-old");

    for (const char* handle : picks) {
      document.picks.push_back(*std::ranges::find(document.entities, handle, handle_of));
    }
    document.answers = {answers.begin(), answers.end()};
  }

  void add_block_reference() {
    const auto attribute = std::make_shared<BagObject>();
    attribute->properties = {{Member::TagString, "TAG"}, {Member::TextString, "old"}};
    attribute->methods[Member::Update] = [](std::span<Value>) { return Value(); };
    const Bag reference = host.document.add("AcDbBlockReference", "0", {{Member::Name, "DOOR"}});
    reference->methods[Member::GetAttributes] = [attribute](std::span<Value>) -> Value {
      return basic::List{attribute};
    };
  }

  FakeHost host;
};

void expect_whole_totals(const std::vector<std::string>& said) {
  for (const std::string& text : said) {
    const bool is_total = text.starts_with("\r\nTotal");
    EXPECT_TRUE(!is_total || text.ends_with(" Is: 8.5") || text.ends_with(":  Is: 0")) << text;
  }
}

bool is_reached(const ScriptedCase& tried, const Method& method, int n) {
  const FailingStep step(n);
  ScriptedScene scene(tried.picks, tried.answers);
  const auto caller = make_caller(step(scene.host.application));
  step.expect_as_its_row_says(method, caller->call(method.name, tried.arguments));
  expect_whole_totals(scene.host.document.said);
  if (!step.was_reached()) return false;
  EXPECT_FALSE(caller->call("GetNOLayer", {"0"}).failure) << "the host is as usable as before";
  return true;
}

TEST(FaultSweep, OnAScriptedHost) {
  for (const ScriptedCase& tried : scripted_cases) {
    const Method& method = *find_method(tried.method);
    sweep(tried.method, [&](int n) { return is_reached(tried, method, n); });
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace velmar
