#include "embedded/undo.h"

#include "embedded/error_numbers.h"
#include "embedded/host_scene.h"

// What a host's objects are after the drawing under them went a step back or forth.

namespace velmar::embedded {
namespace {

TEST(Undo, MakesWhatTheStepAddedErasedObjects) {
  HostScene scene;
  scene.drawing().keep_history();
  const host::Document document = scene.document();
  const std::string before = scene.drawing().bytes();
  const auto layers = document.Layers().Count();
  const host::Layer made = document.Layers().Add("New");
  document.put(Member::ActiveLayer, made);
  const host::Line line = document.ModelSpace().AddLine({0, 0, 0}, {7, 7, 0});
  scene.drawing().end_step("draw");

  EXPECT_EQ(undo(*scene.application->active()), "draw");
  EXPECT_EQ(scene.drawing().bytes(), before);
  EXPECT_EQ(document.Layers().Count(), layers);
  EXPECT_EQ(document.call(Member::GetVariable, "CLAYER"), Value("Walls"));
  EXPECT_EQ(failure_of([&] { line.Layer(); }), was_erased);
  EXPECT_EQ(failure_of([&] { made.get<std::string>(Member::Name); }), was_erased);
  const host::Line later = document.ModelSpace().AddLine({0, 0, 0}, {8, 8, 0});
  EXPECT_EQ(later.Layer(), "Walls");
  EXPECT_EQ(undo(*scene.application->active()), "edits");

  EXPECT_EQ(redo(*scene.application->active()), "edits");
  EXPECT_EQ(later.Layer(), "Walls");
}

TEST(Undo, ShowsOldValuesOfObjectsThatWereReadBefore) {
  HostScene scene;
  scene.drawing().keep_history();
  const host::Document document = scene.document();
  const auto circle = document.HandleToObject("31");
  circle.put(Member::Radius, 20.0);
  scene.drawing().end_step("grow");
  EXPECT_EQ(circle.get<double>(Member::Radius), 20);
  undo(*scene.application->active());
  EXPECT_EQ(circle.get<double>(Member::Radius), 10);
  redo(*scene.application->active());
  EXPECT_EQ(circle.get<double>(Member::Radius), 20);
}

TEST(Undo, BringsTheActiveSpaceBack) {
  HostScene scene;
  scene.app().Documents().call(Member::Add);
  const host::Document document = scene.document();
  scene.drawing().set_header("$TILEMODE", 70, 1);
  scene.drawing().keep_history();
  document.put(Member::ActiveSpace, 0);
  scene.drawing().end_step("sheet");
  const auto mode = [&] { return document.call(Member::GetVariable, "TILEMODE"); };
  EXPECT_EQ(mode(), Value(std::int16_t{0}));
  undo(*scene.application->active());
  EXPECT_EQ(mode(), Value(std::int16_t{1}));
  redo(*scene.application->active());
  EXPECT_EQ(mode(), Value(std::int16_t{0}));
}

}  // namespace
}  // namespace velmar::embedded
