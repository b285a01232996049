#include "embedded/entity_scene.h"
#include "embedded/error_numbers.h"

namespace velmar::embedded {
namespace {

TEST(EntityRefusals, OfValuesChangeNothing) {
  struct Row {
    std::string handle;
    Member member;
    Value value;
    std::int32_t number;
  };
  const Row rows[] = {
      {"30", Member::Layer, "Nowhere", key_not_found},
      {"30", Member::Linetype, "DOTTED", undefined_linetype},
      {"30", Member::Color, 257, invalid_input},
      {"30", Member::Color, -1, invalid_input},
      {"30", Member::Color, "red", type_mismatch},
      {"30", Member::LinetypeScale, 0.0, invalid_input},
      {"30", Member::Lineweight, 31, invalid_input},
      {"30", Member::TrueColor, 1, bad_argument},
      {"30", Member::StartPoint, "1,2,3", bad_argument},
      {"30", Member::StartPoint, basic::Doubles{1, 2}, wrong_element_count},
      {"30", Member::StartPoint, at(std::nan(""), 0), invalid_input},
      {"30", Member::Length, 5.0, unknown_member},
      {"30", Member::Handle, "31", unknown_member},
      {"30", Member::Invisible, 1, unknown_member},
      {"30", Member::Normal, at(0, 0, 0), invalid_input},
      {"32", Member::Radius, 0.0, invalid_input},
      {"32", Member::Area, -1.0, invalid_input},
      {"33", Member::RadiusRatio, 1.5, invalid_input},
      {"33", Member::MinorRadius, 5.0, invalid_input},
      {"33", Member::MajorAxis, at(1, 0, 1), invalid_input},
      {"34", Member::Coordinates, basic::Doubles{0, 0, 1, 1}, wrong_element_count},
      {"34", Member::ConstantWidth, -1.0, invalid_input},
      {"39", Member::Elevation, 1.0, unknown_member},
      {"35", Member::Type, 2, no_such_action},
      {"3D", Member::Height, 0.0, invalid_input},
      {"3D", Member::ScaleFactor, 0.0, invalid_input},
      {"3D", Member::ScaleFactor, -1.0, invalid_input},
      {"3D", Member::StyleName, "Romans", key_not_found},
      {"3D", Member::Alignment, 15, invalid_input},
      {"3D", Member::TextGenerationFlag, 1, invalid_input},
      {"3E", Member::Name, "WINDOW", key_not_found},
      {"3E", Member::Name, "*Model_Space", key_not_found},
      {"3E", Member::YScaleFactor, 0.0, invalid_input},
      {"3E", Member::Columns, 2, unknown_member},
      {"41", Member::TextString, "x", unknown_member},
  };
  const EntityScene scene;
  const std::string before = scene.bytes();
  for (const Row& row : rows) {
    const std::string what = row.handle + " " + std::string(host::spelling(row.member));
    EXPECT_EQ(failure_of([&] { scene.put(row.handle, row.member, row.value); }), row.number)
        << what;
    EXPECT_EQ(scene.bytes(), before) << what;
  }
}

TEST(EntityRefusals, OfCallsChangeNothing) {
  const EntityScene scene;
  const std::string before = scene.bytes();
  const auto number = [&](const std::string& handle, Member member, auto... arguments) {
    return failure_of([&] { scene.call(handle, member, arguments...); });
  };
  EXPECT_EQ(number("30", Member::ScaleEntity, at(0, 0), 0.0), invalid_input);
  EXPECT_EQ(number("30", Member::Mirror, at(1, 1), at(1, 1)), invalid_input);
  EXPECT_EQ(number("30", Member::Mirror3D, at(0, 0), at(1, 1), at(2, 2)), invalid_input);
  EXPECT_EQ(number("30", Member::Rotate3D, at(0, 0), at(0, 0), 1.0), invalid_input);
  EXPECT_EQ(number("30", Member::ArrayPolar, 1, 1.0, at(0, 0)), invalid_input);
  EXPECT_EQ(number("30", Member::ArrayRectangular, 0, 2, 1, 1.0, 1.0, 1.0), invalid_input);
  EXPECT_EQ(number("30", Member::Move, at(0, 0)), 449);
  EXPECT_EQ(number("30", Member::Move, at(0, 0), at(1, 1), at(2, 2)), 450);
  EXPECT_EQ(number("30", Member::Move, at(0, 0), basic::List{0.0, 0.0, 0.0}), bad_argument);
  EXPECT_EQ(number("30", Member::GetAttributes), unknown_member);
  EXPECT_EQ(number("34", Member::AddVertex, 4, basic::Doubles{0, 0}), bad_argument);
  EXPECT_EQ(number("30", Member::Explode), unknown_member);
  EXPECT_EQ(number("30", Member::GetExtensionDictionary), no_such_action);
  EXPECT_EQ(number("41", Member::Move, at(0, 0), at(1, 1)), no_such_action);
  EXPECT_EQ(number("41", Member::ArrayPolar, 3, 1.0, at(0, 0)), no_such_action);
  EXPECT_EQ(number("3F", Member::Copy), no_such_action);
  EXPECT_EQ(failure_of([&] {
              scene.call("30", Member::TransformBy,
                         basic::Doubles{2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1});
            }),
            invalid_input);
  EXPECT_EQ(scene.bytes(), before);
}

/// The entities of one_of_each() and some of other kinds, all on the locked layer.
EntityScene locked_scene() {
  std::string entities =
      one_of_each() + head("HATCH", "50") +
      "100 AcDbHatch\n10 0\n20 0\n30 0\n210 0\n220 0\n230 1\n2 SOLID\n70 1\n71 0\n"
      "91 0\n75 0\n76 1\n98 0\n" +
      head("DIMENSION", "51") +
      "100 AcDbDimension\n10 0\n20 5\n30 0\n11 5\n21 5\n31 0\n70 1\n3 Standard\n"
      "100 AcDbAlignedDimension\n13 0\n23 0\n33 0\n14 10\n24 0\n34 0\n" +
      head("OLE2FRAME", "52") + "100 AcDbOle2Frame\n70 2\n10 1\n20 8\n30 0\n11 5\n21 2\n31 0\n";
  for (std::size_t at = 0; (at = entities.find("\n8 0\n", at)) != entities.npos; ++at) {
    entities.replace(at, 5, "\n8 Locked\n");
  }
  return EntityScene(entities);
}

// Whatever can be put, and whatever method changes the entity.
TEST(EntityRefusals, OfALockedLayerHoldForEveryPropertyAndMethod) {
  const EntityScene scene = locked_scene();
  const std::string before = scene.bytes();
  std::size_t puts = 0;
  for (const char* handle :
       {"30", "31", "32", "33", "34", "35", "39", "3D", "3E", "3F", "41", "50", "51", "52"}) {
    for (std::uint16_t i = 0; i <= last_member; ++i) {
      const auto member = static_cast<Member>(i);
      Value value;
      if (failure_of([&] { value = scene.get(handle, member); }) != 0) continue;
      const std::int32_t number = failure_of([&] { scene.put(handle, member, value); });
      EXPECT_EQ(number, on_locked_layer) << handle << " " << host::spelling(member);
      ++puts;
    }
  }
  EXPECT_GT(puts, 200U);

  struct Row {
    const char* handle;
    Member member;
    std::vector<Value> arguments;
  };
  const basic::Doubles unit{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
  const Row rows[] = {
      {"30", Member::Move, {at(0, 0), at(1, 1)}},
      {"32", Member::Rotate, {at(0, 0), 1.0}},
      {"31", Member::Rotate3D, {at(0, 0), at(0, 0, 1), 1.0}},
      {"33", Member::ScaleEntity, {at(0, 0), 2.0}},
      {"34", Member::TransformBy, {unit}},
      {"51", Member::Move, {at(0, 0), at(1, 1)}},
      {"52", Member::Move, {at(0, 0), at(1, 1)}},
      {"3F", Member::Rotate, {at(0, 0), 1.0}},
      {"41", Member::Delete, {}},
      {"3D", Member::Erase, {}},
      {"30", Member::SetXData, {basic::List{}, basic::List{}}},
      {"34", Member::AddVertex, {1, basic::Doubles{9, 9}}},
      {"34", Member::SetBulge, {0, 1.0}},
      {"34", Member::SetWidth, {0, 1.0, 1.0}},
      {"34", Member::Coordinate, {0, basic::Doubles{9, 9}}},
      {"35", Member::AppendVertex, {at(9, 9)}},
      {"50", Member::AppendOuterLoop, {basic::List{}}},
      {"50", Member::Evaluate, {}},
  };
  for (const Row& row : rows) {
    std::vector<Value> arguments = row.arguments;
    EXPECT_EQ(failure_of([&] { scene.object(row.handle)->call(row.member, arguments); }),
              on_locked_layer)
        << row.handle << " " << host::spelling(row.member);
  }
  EXPECT_EQ(scene.bytes(), before);
}

TEST(EntityRefusals, OfALockedLayerLetReadingAndUpdateWork) {
  const EntityScene scene(
      head("LINE", "30", "Locked") + "100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n21 0\n31 0\n" +
      head("LWPOLYLINE", "31", "Locked") +
      "100 AcDbPolyline\n90 2\n70 0\n10 0\n20 0\n10 1\n20 0\n" + head("LINE", "32") +
      "100 AcDbLine\n10 0\n20 0\n30 0\n11 1\n21 0\n31 0\n");
  const std::string before = scene.bytes();
  const auto refused = [](auto action) { EXPECT_EQ(failure_of(action), on_locked_layer); };
  refused([&] { scene.put("30", Member::Layer, "0"); });
  refused([&] { scene.put("30", Member::StartPoint, at(1, 1)); });
  refused([&] { scene.call("30", Member::Move, at(0, 0), at(1, 1)); });
  refused([&] { scene.call("30", Member::Delete); });
  refused([&] { scene.call("30", Member::SetXData, basic::List{}, basic::List{}); });
  refused([&] { scene.call("31", Member::SetBulge, 0, 1.0); });
  scene.call("30", Member::Update);
  scene.call("30", Member::Highlight, true);
  EXPECT_TRUE(scene.get("30", Member::Layer) == Value("Locked"));
  expect_value(scene.call("31", Member::GetBulge, 0), 0.0, "bulge");
  EXPECT_EQ(scene.bytes(), before);

  scene.put("32", Member::Layer, "LOCKED");
  EXPECT_TRUE(scene.get("32", Member::Layer) == Value("Locked"));
}

TEST(EntityRefusals, OfWhatIsGone) {
  const EntityScene scene;
  const auto line = scene.object("30");
  EntityScene::call_on(*line, Member::Delete);
  EXPECT_EQ(failure_of([&] { line->get(Member::Layer); }), was_erased);
  EXPECT_EQ(failure_of([&] { line->put(Member::Layer, "0"); }), was_erased);
  EXPECT_EQ(failure_of([&] { EntityScene::call_on(*line, Member::Delete); }), was_erased);
  EXPECT_EQ(failure_of([&] { scene.object("30"); }), was_erased);
  EXPECT_EQ(failure_of([&] { scene.object("ABC"); }), unknown_handle);

  const auto circle = scene.object("32");
  scene.document->closed = true;
  EXPECT_NE(failure_of([&] { circle->get(Member::Layer); }), 0);
}

TEST(EntityRefusals, OfBadNumbersInTheFileNameThePlace) {
  const EntityScene scene(head("LINE", "30") +
                          "100 AcDbLine\n10 zero\n20 0\n30 0\n11 1\n21 0\n31 0\n");
  EXPECT_TRUE(scene.get("30", Member::ObjectName) == Value("AcDbLine"));
  try {
    scene.get("30", Member::StartPoint);
    FAIL() << "a start point was read";
  } catch (const basic::Failure& failure) {
    EXPECT_EQ(failure.source, "AutoCAD");
    EXPECT_NE(failure.description.find("30"), std::string::npos) << failure.description;
    EXPECT_NE(failure.description.find("line"), std::string::npos) << failure.description;
  }
}

}  // namespace
}  // namespace velmar::embedded
