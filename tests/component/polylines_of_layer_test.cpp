// What Hatch_Layer and Dim_Layer have the other commands do to each polyline.

#include <gmock/gmock.h>

#include "basic/conversion.h"
#include "component/velmar16.h"
#include "fake_host.h"

namespace velmar {
namespace {

using testing::ElementsAre;

class PolylinesOfLayer : public testing::Test {
 protected:
  PolylinesOfLayer() {
    host.document.object->methods[Member::SendCommand] = [this](std::span<Value> text) {
      typed.push_back(basic::text(text[0]));
      return Value();
    };
    model_space().methods[Member::AddHatch] = [this](std::span<Value>) {
      const Bag hatch = host.document.add("AcDbHatch", "0");
      hatch->methods[Member::AppendOuterLoop] = [this](std::span<Value> loop) {
        const auto& items = *loop[0].if_is<basic::List>();
        const auto boundary = basic::convert<basic::Reference>(items.at(0));
        hatched.push_back(handle_of(std::dynamic_pointer_cast<BagObject>(boundary)));
        return Value();
      };
      return hatch;
    };
    polyline("A", true), polyline("A", false), polyline("a", true);
    host.document.add_boxed("AcDbLine", {}, {1, 1, 0})->properties[Member::Layer] = "A";
  }

  void polyline(const char* on, bool closed) {
    const Bag added = host.document.add_boxed("AcDbPolyline", {}, {20, 10, 0});
    added->properties[Member::Layer] = on;
    added->properties[Member::Closed] = closed;
  }
  BagObject& model_space() {
    const auto object =
        basic::convert<basic::Reference>(host.document.object->get(Member::ModelSpace));
    return dynamic_cast<BagObject&>(*object);
  }

  FakeHost host;
  std::vector<std::string> typed, hatched;
  std::string layer;
};

TEST_F(PolylinesOfLayer, AreHatchedOpenOrClosed) {
  host.document.picks = {host.document.entities[0]};
  Velmar16().Hatch_Layer(layer);
  EXPECT_EQ(layer, "A");
  EXPECT_THAT(hatched, ElementsAre("10", "11"));
  EXPECT_EQ(host.document.said.back(), "Autocad Ready.");
}

TEST_F(PolylinesOfLayer, AreDimensionedAlongTopAndRightEdgeIfClosed) {
  struct Case {
    double dx, dy;
    const char *above, *beside;  // where the dimension lines are
  };
  const Case cases[] = {{2.5, 0, "8", "18"}, {3.5, 0, "6", "16"},       {-3, 9e-9, "13", "23"},
                        {-3, 4, "15", "25"}, {0, 3, "7", "17"},         {0, -3, "13", "23"},
                        {3, -4, "5", "15"},  {0.4, 0, "-1990", "-1980"}};  // by default 2000
  for (const Case& tried : cases) {
    typed.clear();
    host.document.picks = {host.document.entities[0]};
    host.document.answers = {basic::Doubles{5, 5, 5},
                             basic::Doubles{5 + tried.dx, 5 + tried.dy, 0}};
    Velmar16().Dim_Layer(layer);
    EXPECT_THAT(typed,
                ElementsAre("_DIMLINEAR\r0,10\r20,10\rH\r0," + std::string(tried.above) + "\r",
                            "_DIMLINEAR\r20,0\r20,10\rV\r" + std::string(tried.beside) + ",0\r"))
        << tried.dx << " " << tried.dy;
    EXPECT_THAT(host.document.said, ElementsAre("Autocad Ready."));
    host.document.said.clear();
  }
}

}  // namespace
}  // namespace velmar
