#include "embedded/host_scene.h"

namespace velmar::embedded {
namespace {

using basic::Doubles;
using basic::LeftOut;
using basic::List;

constexpr std::int32_t window = 0, crossing = 1, previous = 3, last = 4, all = 5;

host::SelectionSet new_set(const HostScene& scene) { return scene.sets().Add("TEST"); }

TEST(SelectionSets, AreFoundByNameAndRefuseASecondOfTheSameName) {
  HostScene scene;
  const host::SelectionSets sets = scene.sets();
  sets.Add("First");
  sets.Add("Second");
  EXPECT_EQ(failure_of([&] { sets.Add("FIRST"); }), -2145320851);
  EXPECT_EQ(failure_of([&] { sets.Item("Third"); }), -2145386476);
  EXPECT_EQ(sets.Count(), 2);
  EXPECT_EQ(sets.Item("second").get<std::string>(Member::Name), "Second");
  EXPECT_EQ(sets.Item(0).get<std::string>(Member::Name), "First");
  EXPECT_NE(failure_of([&] { sets.Item(2); }), 0);
}

TEST(SelectionSets, DeleteTakesTheSetButNotItsEntities) {
  HostScene scene;
  const host::SelectionSet set = new_set(scene);
  set.Select(host::SelectionMode::all);
  set.Delete();
  EXPECT_EQ(scene.sets().Count(), 0);
  EXPECT_EQ(failure_of([&] { set.Count(); }), -2145386420);
  EXPECT_FALSE(scene.drawing().is_changed());
  scene.sets().Add("TEST");  // the name is free again
}

TEST(SelectionSet, SelectsByEachMode) {
  HostScene scene({"#31", ""});
  new_set(scene).SelectOnScreen();
  scene.sets().Item("TEST").Delete();
  struct Row {
    std::int32_t mode;
    Value corner, opposite;
    const char* handles;
  };
  const Row rows[] = {
      {window, at(101, 1), at(-1, -1), "30"},
      {window, at(0, 0), at(100, 100), "30 31 32 34 37"},
      {crossing, at(45, 59), at(55, 61), "31"},
      {crossing, at(48, 48), at(52, 52), ""},  // within the circle, touching nothing
      {crossing, at(-1, -1), at(1, 1), "30 37"},
      {previous, LeftOut{}, LeftOut{}, "31"},
      {last, LeftOut{}, LeftOut{}, "37"},
      {all, LeftOut{}, LeftOut{}, "30 31 32 33 34 37"},
  };
  for (const Row& row : rows) {
    const host::SelectionSet set = new_set(scene);
    set.call(Member::Select, row.mode, row.corner, row.opposite);
    EXPECT_EQ(handles(set), row.handles) << row.mode;
    set.Delete();
  }
}

TEST(SelectionSet, TheLastIsTheLastThatCanBeSeen) {
  HostScene scene;
  const auto last_handle = [&] {
    const host::SelectionSet set = new_set(scene);
    set.Select(host::SelectionMode::last);
    const std::string handle = handles(set);
    set.Delete();
    return handle;
  };
  const host::Document document = scene.document();
  EXPECT_EQ(last_handle(), "37");
  document.call(Member::SetVariable, "CLAYER", "0");
  document.Layers().Item("Walls").put(Member::Freeze, true);  // circle 31, line 37
  EXPECT_EQ(last_handle(), "34");
  document.HandleToObject("34").Visible(false);
  EXPECT_EQ(last_handle(), "32");
  document.HandleToObject("32").Delete();
  document.HandleToObject("30").Delete();
  EXPECT_EQ(last_handle(), "");  // 33 is on a layer that is off
}

TEST(SelectionSet, AddsWithoutDoublingAndInTheOrderChosen) {
  HostScene scene;
  const host::SelectionSet set = new_set(scene);
  set.Select(host::SelectionMode::last);
  set.call(Member::Select, crossing, at(-1, -1), at(1, 1));
  EXPECT_EQ(handles(set), "37 30");
  const auto entity = [&](const char* handle) { return scene.document().HandleToObject(handle); };
  set.call(Member::AddItems, List{entity("32").object(), entity("30").object()});
  set.call(Member::RemoveItems, entity("37").object());
  EXPECT_EQ(handles(set), "30 32");
  EXPECT_NE(failure_of([&] { set.call(Member::AddItems, "30"); }), 0);
  set.call(Member::Clear);
  EXPECT_EQ(set.Count(), 0);
}

TEST(SelectionSet, ErasedEntitiesDropOutAlsoDuringAWalk) {
  HostScene scene;
  const host::SelectionSet set = new_set(scene);
  set.Select(host::SelectionMode::all);
  std::string walked;
  for (const host::Entity& entity : set) {
    walked += entity.Handle() + " ";
    if (entity.Handle() == "30") scene.document().HandleToObject("31").Delete();
  }
  EXPECT_EQ(walked, "30 32 33 34 37 ");
  EXPECT_EQ(set.Count(), 5);
  EXPECT_EQ(set.Item(1).Handle(), "32");
}

TEST(SelectionSet, EraseDeletesTheEntitiesUnlessOneIsLocked) {
  HostScene scene;
  const host::SelectionSet set = new_set(scene);
  set.Select(host::SelectionMode::all);
  EXPECT_EQ(failure_of([&] { set.call(Member::Erase); }), -2145386413);
  EXPECT_FALSE(scene.drawing().is_changed());
  set.call(Member::RemoveItems, scene.document().HandleToObject("33").object());
  set.call(Member::Erase);
  EXPECT_EQ(handles(scene.document().ModelSpace()), "33");
  EXPECT_EQ(set.Count(), 0);
}

TEST(SelectionSet, FiltersByKindLayerColourAndBlock) {
  HostScene scene;
  struct Row {
    List codes, values;
    const char* handles;
  };
  const auto code = [](std::int16_t number) { return Value(number); };
  const Row rows[] = {
      {{code(0)}, {"line"}, "30 33 37"},
      {{code(0)}, {"*TEXT,INS?RT"}, "32 34"},
      {{code(8)}, {"walls"}, "31 37"},
      {{code(62)}, {1}, "37"},
      {{code(62)}, {256}, "30 31 32 33 34"},
      {{code(2)}, {"D*"}, "34"},
      {{code(0), code(8)}, {"LINE", "0,Walls"}, "30 37"},
      {{}, {}, "30 31 32 33 34 37"},
  };
  for (const Row& row : rows) {
    const host::SelectionSet set = new_set(scene);
    set.call(Member::Select, all, LeftOut{}, LeftOut{}, row.codes, row.values);
    EXPECT_EQ(handles(set), row.handles);
    set.Delete();
  }
}

TEST(SelectionSet, RefusesWhatItCannotSelectBy) {
  HostScene scene;
  const host::SelectionSet set = new_set(scene);
  const std::int32_t invalid = -2145320939;
  const auto filtered = [&](const List& codes, const List& values) {
    return failure_of([&] { set.call(Member::Select, all, LeftOut{}, LeftOut{}, codes, values); });
  };
  EXPECT_EQ(filtered({Value(std::int16_t{-4})}, {"<or"}), invalid);
  EXPECT_EQ(filtered({Value(std::int16_t{0})}, {"LINE", "ARC"}), -2145320944);
  EXPECT_EQ(failure_of([&] { set.call(Member::Select, 2); }), invalid);
  EXPECT_EQ(failure_of([&] { set.call(Member::Select, window, at(0, 0)); }), invalid);
  EXPECT_EQ(set.Count(), 0);
}

TEST(SelectOnScreen, TakesAnswersUntilEnter) {
  const std::pair<std::vector<std::string>, const char*> rows[] = {
      {{""}, ""},
      {{"#31", "#30", "#31", ""}, "31 30"},
      {{"L", "60,50", ""}, "37 31"},
      {{"W -1,-1 101,1", "C @1,1 2,2", "nothing", "50,50", ""}, "30"},
      {{"c 45,59 @10,2", ""}, "31"},
      {{"ALL", ""}, "30 31 32 33 34 37"},
  };
  for (const auto& [answers, expected] : rows) {
    HostScene scene(answers);
    const host::SelectionSet set = new_set(scene);
    set.SelectOnScreen();
    EXPECT_EQ(handles(set), expected) << answers.front();
    EXPECT_EQ(scene.user.left(), 0u);
  }
}

TEST(SelectOnScreen, EscapeLeavesTheSetAsItWas) {
  HostScene scene({"#31", "^C"});
  const host::SelectionSet set = new_set(scene);
  set.Select(host::SelectionMode::last);
  EXPECT_EQ(failure_of([&] { set.SelectOnScreen(); }), cancelled_number);
  EXPECT_EQ(handles(set), "37");
}

TEST(SelectOnScreen, PreviousIsWhatTheUserChoseBeforeLessWhatWasErased) {
  HostScene scene({"P", "#31", "#30", "", "p", ""});
  new_set(scene).SelectOnScreen();
  EXPECT_EQ(scene.said().size(), 1u);  // nothing was chosen before
  scene.document().HandleToObject("31").Delete();
  const host::SelectionSet second = scene.sets().Add("SECOND");
  second.SelectOnScreen();
  EXPECT_EQ(handles(second), "30");
}

}  // namespace
}  // namespace velmar::embedded
