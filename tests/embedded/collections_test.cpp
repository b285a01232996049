#include "drawing/references_text.h"
#include "embedded/error_numbers.h"
#include "embedded/host_scene.h"

namespace velmar::embedded {
namespace {

using basic::Doubles;

/// The host with the drawing of sheets and blocks (drawing/references_text.h) open.
class Collections : public testing::Test {
 protected:
  Collections() { scene.app().Documents().Open(scene.file("sheets.dxf", drawing::sheets_text())); }

  host::View of(Member collection) const { return scene.document().get<host::View>(collection); }
  host::View item(Member collection, std::string_view name) const {
    return host::from_value<host::View>(of(collection).call(Member::Item, name));
  }
  std::string names(Member collection) const {
    std::string text;
    for (const host::View& one : host::Collection<host::View>(of(collection).object())) {
      text += (text.empty() ? "" : " ") + one.get<std::string>(Member::Name);
    }
    return text;
  }
  drawing::Drawing saved() const {
    return drawing::Drawing::read(scene.drawing().bytes(), "saved.dxf");
  }
  void expect_sound() const {
    for (const drawing::Warning& fault : saved().broken_references()) ADD_FAILURE() << fault.text;
  }

  HostScene scene;
};

TEST_F(Collections, LayoutsAreSortedAndKnownByName) {
  EXPECT_EQ(names(Member::Layouts), "Layout1 Layout2 Model");
  EXPECT_EQ(item(Member::Layouts, "LAYOUT2").get<std::int32_t>(Member::TabOrder), 2);
  EXPECT_TRUE(item(Member::Layouts, "Model").get<bool>(Member::ModelType));
  EXPECT_EQ(failure_of([&] { item(Member::Layouts, "Other"); }), -2145386476);
  const auto block = item(Member::Layouts, "Layout2").get<host::View>(Member::Block);
  EXPECT_EQ(block.get<std::string>(Member::Name), "*Paper_Space0");
  item(Member::Layouts, "Layout2").put(Member::Name, "A");
  EXPECT_EQ(names(Member::Layouts), "A Layout1 Model");
  EXPECT_EQ(failure_of([&] { item(Member::Layouts, "A").put(Member::Name, "Layout1"); }),
            -2145386475);
  EXPECT_EQ(failure_of([&] { item(Member::Layouts, "Model").put(Member::Name, "B"); }),
            invalid_input);
  expect_sound();
}

TEST_F(Collections, TheActiveLayoutIsWhereWorkIsDone) {
  const host::Document document = scene.document();
  const host::View second = item(Member::Layouts, "Layout2");
  document.put(Member::ActiveLayout, Value(second.object()));
  EXPECT_EQ(document.get<host::View>(Member::ActiveLayout).get<std::string>(Member::Name),
            "Layout2");
  const auto paper = document.get<host::View>(Member::PaperSpace);
  EXPECT_EQ(paper.get<std::string>(Member::Name), "*Paper_Space");
  EXPECT_EQ(paper.get<std::int32_t>(Member::Count), 2);
  EXPECT_EQ(document.get<std::int32_t>(Member::ActiveSpace), 0);
  expect_sound();
  second.call(Member::Delete);  // the active one
  EXPECT_EQ(document.get<host::View>(Member::ActiveLayout).get<std::string>(Member::Name),
            "Layout1");
  EXPECT_EQ(failure_of([&] { second.get<std::string>(Member::Name); }), -2145386420);
  EXPECT_EQ(failure_of([&] { item(Member::Layouts, "Model").call(Member::Delete); }),
            invalid_input);
  expect_sound();
}

TEST_F(Collections, AWalkMayDeleteEverySheet) {
  int deleted = 0;
  for (const host::View& layout : host::Collection<host::View>(of(Member::Layouts).object())) {
    if (layout.get<std::string>(Member::Name) == "Model") continue;
    layout.call(Member::Delete);
    ++deleted;
  }
  EXPECT_EQ(deleted, 2);
  EXPECT_EQ(names(Member::Layouts), "Layout1 Model");  // an empty one in their place
  EXPECT_EQ(scene.document().get<host::View>(Member::PaperSpace).get<std::int32_t>(Member::Count),
            0);
  expect_sound();
}

TEST_F(Collections, ZoomWritesTheViewOfTheActiveLayout) {
  const host::Document document = scene.document();
  scene.app().ZoomExtents();  // (0,0) to (4,2), the window is twice as wide as high
  auto view = *scene.drawing().view(drawing::SpaceId::model);
  EXPECT_EQ(view.height, 2);
  EXPECT_EQ(view.center, (Point{2, 1, 0}));
  scene.app().call(Member::ZoomWindow, Doubles{10, 10, 0}, Doubles{20, 30, 0});
  view = *saved().view(drawing::SpaceId::model);
  EXPECT_EQ(view.height, 20);
  EXPECT_EQ(view.center, (Point{15, 20, 0}));
  document.put(Member::ActiveLayout, Value(item(Member::Layouts, "Layout1").object()));
  scene.app().call(Member::ZoomWindow, Doubles{0, 0, 0}, Doubles{6, 2, 0});
  const auto paper = *saved().view(*saved().find_space("*Paper_Space"));
  EXPECT_EQ(paper.height, 4);  // the frame is 12 by 8
  EXPECT_EQ(paper.center, (Point{3, 1, 0}));
  EXPECT_EQ(saved().view(drawing::SpaceId::model)->height, 20);
}

TEST_F(Collections, BlocksAreAddedRenamedAndDeleted) {
  const host::View blocks = of(Member::Blocks);
  const auto add = [&](std::string_view name) {
    return host::from_value<host::View>(blocks.call(Member::Add, Doubles{1, 2, 0}, name));
  };
  const host::View block = add("NEW");
  block.call(Member::AddLine, Doubles{0, 0, 0}, Doubles{1, 0, 0});
  EXPECT_EQ(add("new").get<std::int32_t>(Member::Count), 1);  // the one that is there
  block.put(Member::Origin, Doubles{3, 4, 0});
  item(Member::Blocks, "USED").put(Member::Name, "RENAMED");
  const host::Entity reference = scene.document().HandleToObject("43");
  EXPECT_EQ(reference.get<std::string>(Member::Name), "RENAMED");
  EXPECT_EQ(failure_of([&] { item(Member::Blocks, "RENAMED").call(Member::Delete); }),
            invalid_input);
  EXPECT_EQ(failure_of([&] { item(Member::Blocks, "OUTER").put(Member::Name, "INNER"); }),
            -2145386405);
  EXPECT_EQ(failure_of([&] { item(Member::Blocks, "*Model_Space").call(Member::Delete); }),
            invalid_input);
  item(Member::Blocks, "OUTER").call(Member::Delete);
  EXPECT_EQ(names(Member::Blocks), "*Model_Space *Paper_Space *Paper_Space0 INNER RENAMED NEW");
  EXPECT_EQ(saved().spaces()[index(*saved().find_space("NEW"))].base, (Point{3, 4, 0}));
  expect_sound();
}

TEST_F(Collections, InsertBlockBringsTheAttributesOfTheBlock) {
  const host::View used = item(Member::Blocks, "USED");
  used.call(Member::AddAttribute, 2.0, 0, "Number?", Doubles{1, 1, 0}, "NUMBER", "12");
  used.call(Member::AddAttribute, 2.0, 2, "", Doubles{1, 3, 0}, "FIXED", "always");
  const host::View model = scene.document().get<host::View>(Member::ModelSpace);
  const auto insert = [&](const host::View& space, std::string_view name, double scale) {
    return host::from_value<host::View>(
        space.call(Member::InsertBlock, Doubles{10, 0, 0}, name, scale, scale, scale, 0.0));
  };
  const host::View reference = insert(model, "used", 2);
  EXPECT_EQ(reference.get<std::string>(Member::Name), "USED");
  const Value attributes = reference.call(Member::GetAttributes);
  ASSERT_EQ(attributes.if_is<basic::List>()->size(), 1u);
  const auto number = host::from_value<host::View>(attributes.if_is<basic::List>()->front());
  EXPECT_EQ(number.get<std::string>(Member::TextString), "12");
  EXPECT_EQ(number.get<double>(Member::Height), 4);
  EXPECT_EQ(number.get<host::Point>(Member::InsertionPoint), (host::Point{12, 2, 0}));
  EXPECT_EQ(failure_of([&] { insert(model, "MISSING", 1); }), filer_error);
  EXPECT_EQ(failure_of([&] { insert(model, "USED", 0); }), invalid_input);
  EXPECT_EQ(failure_of([&] { insert(item(Member::Blocks, "INNER"), "OUTER", 1); }), invalid_input);
  expect_sound();
}

TEST_F(Collections, ExternalReferencesAreUnloadedReloadedAndDetached) {
  const host::View model = scene.document().get<host::View>(Member::ModelSpace);
  const auto attach = [&](std::string_view path) {
    return model.call(Member::AttachExternalReference, path, "FRAME", Doubles{0, 0, 0}, 1.0, 1.0,
                      1.0, 0.0, false);
  };
  EXPECT_EQ(failure_of([&] { attach("frame.dwg"); }), filer_error);
  EXPECT_EQ(failure_of([&] { item(Member::Blocks, "FRAME"); }), -2145386476);
  const std::string file = scene.file("frame.dwg", "anything");
  attach("C:\\drawings\\frame.dwg");  // found beside the drawing
  const host::View frame = item(Member::Blocks, "FRAME");
  const auto flags = [&] { return saved().spaces()[index(*saved().find_space("FRAME"))].flags; };
  EXPECT_TRUE(frame.get<bool>(Member::IsXRef));
  EXPECT_EQ(flags(), 36);
  frame.call(Member::Unload);
  EXPECT_EQ(flags(), 4);
  frame.call(Member::Reload);
  EXPECT_EQ(flags(), 36);
  frame.call(Member::Unload);
  std::filesystem::remove(file);
  const std::string before = scene.drawing().bytes();
  EXPECT_EQ(failure_of([&] { frame.call(Member::Reload); }), filer_error);
  EXPECT_EQ(failure_of([&] { frame.call(Member::Bind, true); }), 445);
  EXPECT_EQ(failure_of([&] { item(Member::Blocks, "USED").call(Member::Unload); }), -2145386452);
  EXPECT_EQ(scene.drawing().bytes(), before);
  frame.call(Member::Detach);
  EXPECT_EQ(model.get<std::int32_t>(Member::Count), 4);
  EXPECT_EQ(failure_of([&] { frame.get<std::string>(Member::Name); }), -2145386420);
  expect_sound();
}

TEST_F(Collections, PurgeAllKeepsWhatTheUserWorksWith) {
  const host::Document document = scene.document();
  document.call(Member::SetVariable, "CLAYER", "Spare");
  document.call(Member::SetVariable, "TEXTSTYLE", "Spare");
  for (int i = 0; i < 4; ++i) document.call(Member::PurgeAll);
  EXPECT_EQ(names(Member::Layers), "0 Walls Spare");
  EXPECT_TRUE(scene.drawing().has_row("STYLE", "Spare"));
  EXPECT_EQ(names(Member::Blocks), "*Model_Space *Paper_Space *Paper_Space0 USED");
  EXPECT_EQ(names(Member::Groups), "PAIR");
  expect_sound();
}

TEST_F(Collections, LinetypesGroupsAndDictionariesAreRead) {
  of(Member::Linetypes).call(Member::Add, "DOTS");
  item(Member::Linetypes, "dots").put(Member::Description, ". . .");
  EXPECT_EQ(names(Member::Linetypes), "Continuous DOTS");
  EXPECT_EQ(item(Member::Linetypes, "DOTS").get<std::string>(Member::Description), ". . .");
  EXPECT_EQ(failure_of([&] { item(Member::Linetypes, "DASHES"); }), -2145386476);
  EXPECT_EQ(handles(host::Collection<host::Entity>(item(Member::Groups, "pair").object())),
            "40 41");
  EXPECT_EQ(names(Member::Dictionaries), "ACAD_GROUP ACAD_LAYOUT");
  const host::Entity line = scene.document().HandleToObject("40");
  EXPECT_TRUE(line.get<bool>(Member::HasExtensionDictionary));
  const auto own = host::from_value<host::View>(line.call(Member::GetExtensionDictionary));
  const auto note = host::from_value<host::View>(own.call(Member::Item, "NOTE"));
  EXPECT_EQ(note.get<std::string>(Member::Handle), "71");
  EXPECT_FALSE(item(Member::Layers, "Walls").get<bool>(Member::HasExtensionDictionary));
  expect_sound();
}

TEST_F(Collections, PolygonsAndFencesSelectInPlan) {
  scene.app().put(Member::ActiveDocument, Value(scene.app().Documents().Item("plan.dxf").object()));
  struct Row {
    std::int32_t mode;
    Doubles points;
    const char* handles;
  };
  const Row rows[] = {
      {2, {50, -10, 0, 50, 30, 0}, "30"},            // the line across is on a layer that is off
      {2, {45, 45, 0, 55, 55, 0}, ""},               // inside the circle
      {6, {30, 30, 0, 70, 30, 0, 50, 90, 0}, "31"},  // the circle is inside
      {6, {50, 30, 0, 70, 30, 0, 50, 90, 0}, ""},    // only half of it
      {7, {50, 10, 0, 70, 10, 0, 50, 90, 0}, "31"},  // all of it
      {7, {40, 5, 0, 60, 5, 0, 60, 15, 0, 40, 15, 0}, ""},  // between the lines
  };
  for (const Row& row : rows) {
    const host::SelectionSet set = scene.sets().Add("TEST");
    set.call(Member::SelectByPolygon, row.mode, row.points);
    EXPECT_EQ(handles(set), row.handles) << row.mode << ' ' << row.points.front();
    set.Delete();
  }
  const host::SelectionSet set = scene.sets().Add("TEST");
  EXPECT_NE(failure_of([&] { set.call(Member::SelectByPolygon, 5, Doubles{0, 0, 0}); }), 0);
  EXPECT_EQ(failure_of([&] {
              set.call(Member::SelectByPolygon, 6, Doubles{0, 0, 0, 1, 1, 0});
            }),
            -2145320944);
}

TEST_F(Collections, TheApplicationHasItsSettings) {
  const auto page =
      scene.app().get<host::View>(Member::Preferences).get<host::View>(Member::OpenSave);
  page.put(Member::AutoSaveInterval, 5);
  EXPECT_EQ(page.get<std::int32_t>(Member::AutoSaveInterval), 5);
  EXPECT_EQ(failure_of([&] { page.put(Member::IncrementalSavePercent, 101); }), invalid_input);
  const auto state = host::from_value<host::View>(scene.app().call(Member::GetAcadState));
  EXPECT_TRUE(state.get<bool>(Member::IsQuiescent));
  EXPECT_EQ(failure_of([&] { scene.document().call(Member::Regen, -1); }), invalid_input);
}

TEST_F(Collections, ADwgFileIsOpenedByWhatIsInIt) {
  const std::string dxf_inside = scene.file("inside.dwg", drawing::sheets_text());
  const host::Documents documents = scene.app().Documents();
  documents.Open(dxf_inside);
  scene.document().HandleToObject("40").call(Member::Delete);
  scene.document().Save();
  EXPECT_TRUE(scene.content("inside.dwg").starts_with("0\r\nSECTION"));
  try {
    documents.Open(scene.file("real.dwg", "AC1032" + std::string(200, '\0')));
    FAIL();
  } catch (const basic::Failure& failure) {
    EXPECT_EQ(failure.number, -2145320825);
    EXPECT_NE(failure.description.find("DWG drawings cannot be read yet"), std::string::npos);
  }
}

}  // namespace
}  // namespace velmar::embedded
