#include <gtest/gtest.h>

#include "bag_object.h"
#include "host/counting_object.h"
#include "host/document.h"
#include "host/failing_object.h"

namespace velmar::host {
namespace {

/// A space whose method AddItems gives back the list it was given, and remembers it.
struct Space {
  Space() {
    line->properties[Member::Layer] = "A";
    line->methods[Member::Update] = [](std::span<Value>) { return Value(); };
    space->items = {line};
    space->methods[Member::GetEntity] = [this](std::span<Value> arguments) {
      arguments[0] = line;
      return Value();
    };
    space->methods[Member::AddItems] = [this](std::span<Value> arguments) {
      arrived = arguments[0];
      return arguments[0];
    };
  }

  Bag space = std::make_shared<BagObject>(), line = std::make_shared<BagObject>();
  Value arrived;
};

TEST(CountingObject, CountsOnEveryObjectThatComesOut) {
  const Space fake;
  const auto count = std::make_shared<StepCount>();
  const ModelSpace space(counting(fake.space, count));

  for (const Entity& entity : space) entity.Layer("B");
  EXPECT_EQ(count->walks, 1);
  EXPECT_EQ(count->walk_steps, 2) << "one item, then the end";
  EXPECT_EQ(count->puts, 1);

  const Entity picked = Utility(space.object()).GetEntity("?");
  picked.Update();
  EXPECT_EQ(picked.Layer(), "B");
  EXPECT_EQ(count->calls, 2);
  EXPECT_EQ(count->gets, 1);
  EXPECT_EQ(count->total(), 7);
}

TEST(WatchedObject, ArrivesAtTheHostAsTheHostsOwnAlsoInsideLists) {
  Space fake;
  const ModelSpace space(counting(fake.space, std::make_shared<StepCount>()));
  const Entity item = *space.begin();
  ASSERT_NE(item.object(), fake.line);

  const Value given = basic::List{Value(item.object()), Value(1.5)};
  const auto returned = space.call(Member::AddItems, given);
  EXPECT_EQ(fake.arrived, Value(basic::List{Value(fake.line), Value(1.5)}));
  ASSERT_TRUE(returned.is<basic::List>());
  EXPECT_NE(to_object(returned.if_is<basic::List>()->front()), fake.line) << "wrapped again";
}

TEST(FailingObject, FailsOnceAtTheGivenStepOfAnyObject) {
  const Space fake;
  const auto fault = std::make_shared<Fault>(Fault{3, basic::Failure(-5, "Host", "refused")});
  const ModelSpace space(failing(fake.space, fault));

  const Entity item = *space.begin();  // steps 1 and 2
  EXPECT_FALSE(fault->reached());
  try {
    item.Layer("B");
    FAIL() << "the third step succeeded";
  } catch (const basic::Failure& failure) {
    EXPECT_EQ(failure.number, -5);
  }
  EXPECT_EQ(item.Layer(), "A") << "the failing step has no effect, later ones work";
  EXPECT_TRUE(fault->reached());
}

}  // namespace
}  // namespace velmar::host
