#include <gmock/gmock.h>

#include "com/adapter/item_walk.h"
#include "com/automation/bstr.h"
#include "com/failure_number.h"
#include "com/over_automation.h"
#include "embedded/host_scene.h"
#include "host/bag_object.h"
#include "host/entity_cast.h"
#include "host/error_styles.h"
#include "host/failing_object.h"

namespace velmar::com {
namespace {

using basic::Doubles;
using basic::List;
using embedded::HostScene;

/// The embedded host behind automation. When it is gone nothing may be alive.
struct AutomatedScene : OverAutomation, HostScene {
  using HostScene::HostScene;
  ~AutomatedScene() { EXPECT_EQ(served->alive(), 0U) << "objects that nobody holds"; }

  host::Application app() const { return view<host::Application>(application); }
  host::Document document() const { return app().ActiveDocument(); }
  host::Utility utility() const { return document().Utility(); }
};

TEST(HostServer, EveryFormOfAMemberComesThrough) {
  const OverAutomation border;
  const auto bag = std::make_shared<BagObject>(), other = std::make_shared<BagObject>();
  for (const Member member : {Member::Name, Member::Center, Member::ActiveLayer}) {
    bag->properties[member] = {};
  }
  List arrived;
  bag->methods[Member::Move] = [&](std::span<Value> arguments) {
    arrived.assign(arguments.begin(), arguments.end());
    return Value(List{other, other});
  };
  bag->methods[Member::Coordinate] = bag->methods[Member::Move];
  const host::View object = border.view(bag);

  object.put(Member::Name, "caf\xC3\xA9");
  EXPECT_EQ(object.get<std::string>(Member::Name), "caf\xC3\xA9");
  object.put(Member::Center, host::Point{1, 2, 3});
  EXPECT_EQ(bag->properties[Member::Center], Value(Doubles{1, 2, 3}));
  object.put(Member::ActiveLayer, object);
  EXPECT_EQ(bag->properties[Member::ActiveLayer], Value(bag)) << "its own object, not a wrapper";

  const Value result = object.call(Member::Move, std::int16_t{1}, std::int32_t{2}, 2.5, true, "t",
                                   basic::LeftOut{}, Value(), host::Point{4, 5, 6});
  EXPECT_EQ(arrived, (List{std::int16_t{1}, std::int32_t{2}, 2.5, true, "t", basic::LeftOut{},
                           Value(), Doubles{4, 5, 6}}));
  ASSERT_EQ(result.if_is<List>()->size(), 2U);
  object.call(Member::Coordinate, std::int32_t{1}, host::Point{7, 8, 9});
  EXPECT_EQ(arrived, (List{std::int32_t{1}, Doubles{7, 8, 9}})) << "put with an index";
}

TEST(HostServer, OneHostObjectIsOneAutomationObjectAsLongAsItIsHeld) {
  AutomatedScene scene;
  const auto identity = [](const host::View& view) {
    return std::dynamic_pointer_cast<DispatchObject>(view.object())->dispatch().get();
  };
  const host::Application app = scene.app();
  EXPECT_EQ(identity(app.ActiveDocument().get<host::View>(Member::Application)), identity(app));
  const host::Document document = app.ActiveDocument();
  EXPECT_EQ(identity(app.ActiveDocument()), identity(document));
  EXPECT_EQ(scene.served->alive(), 2U);
}

TEST(HostServer, ErrorsKeepNumberSourceAndText) {
  AutomatedScene scene;
  try {
    scene.document().HandleToObject("FFFF");
    FAIL();
  } catch (const basic::Failure& failure) {
    EXPECT_EQ(failure.number, -2145386484);
    EXPECT_EQ(failure.source, "AutoCAD");
    EXPECT_EQ(failure.description, "Unknown handle");
  }
  EXPECT_EQ(failure_number([&] { scene.app().call(Member::Offset, 1.0); }), 438);
  EXPECT_EQ(failure_number([&] { scene.document().HandleToObject("30").call(Member::Move, 1.0); }),
            449);
}

TEST(HostServer, AWalkGoesOnWhileItsItemsAreErased) {
  AutomatedScene scene;
  std::string visited;
  for (const host::Entity& entity : scene.document().ModelSpace()) {
    visited += entity.Handle() + " ";
    if (entity.Handle() == "30") {
      scene.document().HandleToObject("31").Delete();
      entity.Delete();
    }
  }
  EXPECT_EQ(visited, "30 32 33 34 37 ");
  EXPECT_EQ(scene.document().ModelSpace().Count(), 4);
}

TEST(HostServer, ABlockOfItemsFromAfarLeavesOutWhatWasErased) {
  AutomatedScene scene;
  const auto space =
      std::dynamic_pointer_cast<DispatchObject>(scene.document().ModelSpace().object());
  const auto items = walk(*space->dispatch().get(), scene.connection, true);
  Value item;
  ASSERT_TRUE(items->next(item));
  scene.document().HandleToObject("31").Delete();
  std::string visited;
  while (items->next(item)) visited += host::Entity(host::to_object(item)).Handle() + " ";
  EXPECT_EQ(visited, "32 33 34 37 ");
}

TEST(HostServer, AFailureInTheMiddleOfAWalkComesBehindTheItemsBeforeItWithItsText) {
  for (const bool from_afar : {false, true}) {
    AutomatedScene scene;
    const int third = 5;  // the collection is the first step, asking it for its items the second
    const auto fault = std::make_shared<host::Fault>(host::Fault{third, {-7, "Host", "lost"}});
    const auto space = scene.view(host::failing(scene.HostScene::document().object(), fault))
                           .get<basic::Reference>(Member::ModelSpace);
    const auto items = walk(*scene.connection->outward(space).get(), scene.connection, from_afar);
    Value item;
    EXPECT_TRUE(items->next(item) && items->next(item));
    EXPECT_EQ(failure_number([&] { items->next(item); }), -7);
    EXPECT_TRUE(items->next(item)) << "it may go on";
    EXPECT_EQ(host::Entity(host::to_object(item)).Handle(), "32");
    fault->at = fault->steps_taken + 1;
    EXPECT_EQ(failure_text([&] {
                while (items->next(item)) continue;
              }),
              "lost");
  }
}

TEST(HostServer, QuestionsAreAnsweredThroughOutArguments) {
  AutomatedScene scene;
  scene.answers({"#31", "^C", "1,2"});
  EXPECT_EQ(scene.utility().GetEntity("\r\nCircle").Handle(), "31");
  EXPECT_EQ(failure_text([&] { scene.utility().GetEntity("\r\nCircle"); }),
            "Method 'GetEntity' of object 'IAcadUtility' failed");
  EXPECT_EQ(scene.utility().GetPoint("\r\nPoint").y, 2);
  const host::Box box = scene.document().HandleToObject("31").GetBoundingBox();
  EXPECT_EQ(box.min.x, 40);
  EXPECT_EQ(box.max.y, 60);
}

TEST(HostServer, ObjectsOfAClosedDrawingAreDisconnected) {
  AutomatedScene scene;
  const host::Document document = scene.document();
  const host::Entity line = document.HandleToObject("30");
  const host::ModelSpace space = document.ModelSpace();
  Value item;
  const auto items = space.enumerate();
  ASSERT_TRUE(items->next(item));
  document.Close(false);
  EXPECT_EQ(failure_number([&] { line.Layer(); }), -2147417848);
  EXPECT_EQ(failure_number([&] { items->next(item); }), -2147417848);
  EXPECT_EQ(failure_number([&] { scene.document(); }), -2145320900);
}

/// Calls as a script does: every variable by reference, arrays of variants, names in any case.
struct Script : AutomatedScene {
  HRESULT run(IDispatch& object, const wchar_t* name, WORD flags, std::vector<VARIANT> arguments,
              VARIANT* result = nullptr) {
    std::wstring spelled = name;
    LPOLESTR names = spelled.data();
    DISPID id = 0;
    const HRESULT found = object.GetIDsOfNames(IID_NULL, &names, 1, 0, &id);
    if (FAILED(found)) return found;
    return invoke(object, id, flags, std::move(arguments), result);
  }
  HRESULT invoke(IDispatch& object, DISPID id, WORD flags, std::vector<VARIANT> arguments,
                 VARIANT* result) {
    std::ranges::reverse(arguments);
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    EXCEPINFO info{};
    return object.Invoke(id, IID_NULL, 0, flags, &parameters, result, &info, &wrong);
  }
  static VARIANT variable(Variant& held) {
    VARIANT reference{};
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &held.fresh();
    return reference;
  }
  ComPtr<IDispatch> dispatch(const host::View& view) const { return served->serve(raw(view)); }
  static std::shared_ptr<host::Object> raw(const host::View& view) { return view.object(); }

  UINT wrong = 99;
};

TEST(HostServer, ScriptsPassPointsAsArraysOfVariantsAndGetTheirVariablesBackUntouched) {
  Script script;
  const auto line = script.dispatch(script.HostScene::document().HandleToObject("30"));
  Variant from = to_variant(List{std::int16_t{0}, std::int16_t{0}, 0.0});
  Variant to = to_variant(List{std::int16_t{5}, std::int32_t{5}, 0.5});
  EXPECT_EQ(script.run(*line.get(), L"moVE", DISPATCH_METHOD,
                       {Script::variable(from), Script::variable(to)}),
            S_OK);
  EXPECT_EQ(
      script.HostScene::document().HandleToObject("30").get<host::Point>(Member::StartPoint).z,
      0.5);
  EXPECT_EQ(from.get().vt, VT_ARRAY | VT_VARIANT);

  Variant lower, upper = to_variant("something else");
  EXPECT_EQ(script.run(*line.get(), L"GetBoundingBox", DISPATCH_METHOD,
                       {Script::variable(lower), Script::variable(upper)}),
            S_OK);
  EXPECT_EQ(to_value(upper.get()), Value(Doubles{105, 5, 0.5}));
}

TEST(HostServer, CodesStayListsWhereNumbersAreNoCoordinates) {
  Script script;
  const auto line = script.dispatch(script.HostScene::document().HandleToObject("30"));
  const Variant codes = to_variant(List{std::int16_t{1001}, std::int32_t{1070}});
  const Variant values = to_variant(List{"VELMAR_TEST", std::int16_t{7}});
  EXPECT_EQ(script.run(*line.get(), L"SetXData", DISPATCH_METHOD, {codes.get(), values.get()}),
            S_OK);
  Value read_codes, read_values;
  script.document().HandleToObject("30").call(Member::GetXData, "VELMAR_TEST", read_codes,
                                              read_values);
  EXPECT_EQ(read_values, Value(List{"VELMAR_TEST", std::int16_t{7}}));
}

TEST(HostServer, TheDefaultMemberIsItemAndBadCallsAreRefused) {
  Script script;
  const auto space = script.dispatch(script.HostScene::document().ModelSpace());
  Variant item;
  EXPECT_EQ(script.invoke(*space.get(), DISPID_VALUE, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                          {to_variant(std::int16_t{1}).get()}, &item.fresh()),
            S_OK);
  EXPECT_EQ(item.get().vt, VT_DISPATCH);
  EXPECT_EQ(script.run(*space.get(), L"NoSuchName", DISPATCH_METHOD, {}), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(script.invoke(*space.get(), 30000, DISPATCH_METHOD, {}, nullptr),
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(script.invoke(*space.get(), -5, DISPATCH_METHOD, {}, nullptr), DISP_E_MEMBERNOTFOUND);
  VARIANT code{};
  code.vt = VT_ERROR;
  code.scode = E_FAIL;
  EXPECT_EQ(script.run(*space.get(), L"Item", DISPATCH_METHOD, {code}), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(script.wrong, 0U);
}

TEST(HostServer, ItemsAreSkippedAndWalkedAgain) {
  Script script;
  const auto space = script.dispatch(script.HostScene::document().ModelSpace());
  Variant unknown;
  ASSERT_EQ(script.run(*space.get(), L"_NewEnum", DISPATCH_PROPERTYGET, {}, &unknown.fresh()),
            S_OK);
  const auto items = ComPtr<IUnknown>::sharing(unknown.get().punkVal).as<IEnumVARIANT>();
  ASSERT_TRUE(items);
  EXPECT_EQ(items->Skip(5), S_OK);
  VARIANT fetched[3] = {};
  ULONG count = 0;
  EXPECT_EQ(items->Next(3, fetched, &count), S_FALSE);
  EXPECT_EQ(count, 1U);
  VariantClear(&fetched[0]);
  EXPECT_EQ(items->Skip(1), S_FALSE);
  EXPECT_EQ(items->Reset(), S_OK);
  EXPECT_EQ(items->Skip(6), S_OK);
}

}  // namespace
}  // namespace velmar::com
