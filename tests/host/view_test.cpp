#include "host/view.h"

#include <gtest/gtest.h>

#include "bag_object.h"
#include "host/collection.h"
#include "host/entity_cast.h"

namespace velmar::host {
namespace {

using basic::Doubles;
using basic::Failure;

template <class Action>
std::int32_t failure_number(Action action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure.number;
  }
  return 0;
}

Bag entity_of(const char* class_name) {
  auto bag = std::make_shared<BagObject>();
  bag->properties[Member::ObjectName] = class_name;
  return bag;
}

TEST(View, FailsAsBasicDoesOnEmptyObjectsWrongTypesAndUnknownMembers) {
  EXPECT_EQ(failure_number([] { Entity().Layer(); }), basic::object_not_set);
  EXPECT_EQ(failure_number([] { Entity().Update(); }), basic::object_not_set);
  EXPECT_EQ(failure_number([] { Collection<Entity>().begin(); }), basic::object_not_set);

  const Bag bag = entity_of(Line::class_name.data());
  bag->properties[Member::StartPoint] = Doubles{1, 2};
  EXPECT_EQ(failure_number([&] { Line(bag).StartPoint(); }), basic::type_mismatch);
  EXPECT_EQ(failure_number([&] { Line(bag).Length(); }), basic::no_such_member);
  EXPECT_EQ(failure_number([&] { View(bag).get<Entity>(Member::ObjectName); }),
            basic::type_mismatch);
}

TEST(View, HandsOutArgumentsBackAlsoWhenTheCallFails) {
  const Bag bag = entity_of(Line::class_name.data());
  bag->methods[Member::GetBoundingBox] = [](std::span<Value> corners) -> Value {
    corners[0] = Doubles{1, 2, 3};
    throw Failure(-1, "Host", "no extents");
  };
  Value min_point, max_point = "kept";
  EXPECT_THROW(Entity(bag).GetBoundingBox(min_point, max_point), Failure);
  EXPECT_EQ(min_point, Value(Doubles{1, 2, 3}));
  EXPECT_EQ(max_point, Value("kept"));
}

TEST(EntityCast, TakesAnEntityOnlyThroughAViewOfItsKind) {
  const Entity lightweight(entity_of("AcDbPolyline")), heavy(entity_of("AcDb2dPolyline"));
  EXPECT_EQ(failure_number([&] { as<HeavyPolyline>(lightweight); }), basic::type_mismatch);
  EXPECT_EQ(as<HeavyPolyline>(heavy).object(), heavy.object());
  EXPECT_FALSE(try_as<LightweightPolyline>(heavy));
  EXPECT_FALSE(try_as<Line>(Entity(entity_of("acdbline"))));

  const Entity aligned(entity_of("AcDbAlignedDimension"));
  EXPECT_TRUE(try_as<Dimension>(aligned));
  EXPECT_TRUE(try_as<Dimension>(Entity(entity_of("AcDbRadialDimension"))));
  EXPECT_FALSE(try_as<RotatedDimension>(aligned));
}

TEST(Collection, IsWalkedInTheHostsOrder) {
  const auto bag = std::make_shared<BagObject>();
  for (const char* name : {"AcDbLine", "AcDbArc"}) bag->items.emplace_back(entity_of(name));
  std::string seen;
  for (const Entity& entity : Collection<Entity>(bag)) seen += entity.ObjectName();
  EXPECT_EQ(seen, "AcDbLineAcDbArc");
}

}  // namespace
}  // namespace velmar::host
