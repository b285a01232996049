// What a walk costs on the host for entities that it passes by.

#include <gtest/gtest.h>

#include "component/method_table.h"
#include "fake_host.h"
#include "host/counting_object.h"

namespace velmar {
namespace {

/// A method, and an entity that is none of its business.
struct WalkCost {
  const char* method;
  std::vector<Value> arguments;
  const char *class_name, *layer;
  int reads;  // of such an entity, beside the step of the walk
};

const WalkCost walk_costs[] = {
    {"RotateAllText", {"A", 5.0, true}, "AcDbLine", "A", 1},
    {"RotateAllText", {"A", 5.0, true}, "AcDbText", "B", 2},
    {"ReplaceT", {"a", "b"}, "AcDbLine", "A", 1},
    {"ReplaceTL", {"a", "b", "A"}, "AcDbText", "B", 2},
    {"ReplaceInT", {"a", "b", "A"}, "AcDbLine", "A", 1},
    {"ReplaceInT", {"a", "b", "A"}, "AcDbMText", "B", 2},
    {"CountInText", {}, "AcDbLine", "A", 1},
    {"ReplaceTag", {}, "AcDbLine", "A", 1},
    {"GetNOLayer", {"A"}, "AcDbLine", "B", 1},
    {"GetNType", {"T"}, "AcDbLine", "A", 1},
    {"GetNTypeLayer", {"T", "A"}, "AcDbLine", "A", 1},
    {"GetNTypeLayer", {"T", "A"}, "AcDbText", "B", 2},
    {"Replace", {"A", true}, "AcDbLine", "A", 2},  // it counts first, and walks twice
    {"ReplaceLineByType", {}, "AcDbLine", "A", 1},
    {"Hatch_Layer", {}, "AcDbLine", "0", 1},
    {"Hatch_Layer", {}, "AcDbPolyline", "A", 2},
    {"Dim_Layer", {}, "AcDbLine", "0", 1},
    {"ColLayerObj", {std::int16_t{3}, "A", "T"}, "AcDbLine", "A", 1},
    {"ColLayerObj", {std::int16_t{3}, "A", "T"}, "AcDbText", "B", 2},
    {"ColDel", {std::int16_t{3}, "T"}, "AcDbText", "A", 2},
    {"ColDelLayer", {std::int16_t{3}, "A", "T"}, "AcDbLine", "A", 1},
    {"ColorToLayer", {std::int32_t{3}, "A", "T"}, "AcDbText", "A", 2},
    {"NmLayer", {"old", "new"}, "AcDbLine", "A", 1},
};

int steps_with(const WalkCost& tried, int entities) {
  FakeHost host;
  FakeDocument& document = host.document;
  const Bag picked = document.add("AcDbBlockReference", "0", {{Member::Name, "DOOR"}});
  picked->properties[Member::Linetype] = "DASHED";
  picked->methods[Member::GetAttributes] = [](std::span<Value>) -> Value { return basic::List(); };
  document.picks = {picked};
  const bool asks_for_points = std::string_view(tried.method) == "Dim_Layer";
  const Value point = basic::Doubles{0, 0, 0};
  const std::deque<Value> points = {point, point}, texts = {"old", "", "new"}, scale = {2.0};
  document.answers = asks_for_points                                         ? points
                     : std::string_view(tried.method) == "ReplaceLineByType" ? scale
                                                                             : texts;
  for (const char* layer : {"0", "A", "A-old", "A-new"}) document.add_layer(layer);
  for (int i = 0; i < entities; ++i) document.add(tried.class_name, tried.layer);

  const auto count = std::make_shared<host::StepCount>();
  host.decorate = [&](Bag plain) { return host::counting(plain, count); };
  Velmar16 velmar;
  std::vector<Value> arguments = tried.arguments;
  call(velmar, *find_method(tried.method), arguments);
  return count->total();
}

TEST(WalkCost, AnEntityThatIsPassedByIsReadNoMoreThanTheTestNeeds) {
  for (const WalkCost& tried : walk_costs) {
    const int more = steps_with(tried, 30) - steps_with(tried, 10);
    const int walks = std::string_view(tried.method) == "Replace" ? 2 : 1;
    EXPECT_EQ(more, 20 * (tried.reads + walks)) << tried.method << " " << tried.class_name;
  }
}

}  // namespace
}  // namespace velmar
