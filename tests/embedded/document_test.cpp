#include "embedded/document.h"

#include "embedded/error_numbers.h"
#include "embedded/host_scene.h"

namespace velmar::embedded {
namespace {

std::vector<std::string> names(const host::Documents& documents) {
  std::vector<std::string> all;
  for (const host::Document& document : documents) all.push_back(document.Name());
  return all;
}

TEST(Documents, OpenMakesTheDrawingActiveAndOpensNoFileTwice) {
  HostScene scene;
  const host::Documents documents = scene.app().Documents();
  documents.Open(scene.file("second.dxf", plan()));
  EXPECT_EQ(scene.document().Name(), "second.dxf");
  EXPECT_EQ(documents.Open(scene.path("./plan.dxf")).FullName(), scene.path("plan.dxf"));
  EXPECT_EQ(scene.document().Name(), "plan.dxf");
  EXPECT_EQ(documents.Count(), 2);
  EXPECT_EQ(names(documents), (std::vector<std::string>{"plan.dxf", "second.dxf"}));
  EXPECT_EQ(documents.Item("SECOND.dxf").Name(), "second.dxf");
  EXPECT_EQ(documents.Item(0).Name(), "plan.dxf");
  EXPECT_EQ(failure_of([&] { documents.Item("third.dxf"); }), -2145386476);
}

TEST(Documents, RefuseWhatIsMissingOrNoDrawing) {
  HostScene scene;
  const host::Documents documents = scene.app().Documents();
  EXPECT_EQ(failure_of([&] { documents.Open(scene.path("missing.dxf")); }), -2145320924);
  EXPECT_EQ(failure_of([&] { documents.Open(scene.path("")); }), -2145320924);
  EXPECT_EQ(failure_of([&] { documents.Open(scene.file("note.dxf", "Dear Sir,\n")); }),
            -2145320825);
  EXPECT_EQ(documents.Count(), 1);
  // What was meant for the one is not done to another.
  EXPECT_EQ(failure_of([&] { scene.document(); }), -2145320900);
  documents.Item(0).call(Member::Activate);
  EXPECT_EQ(scene.document().Name(), "plan.dxf");
}

TEST(Documents, ClosingTheActiveOneGoesBackToTheOneUsedBefore) {
  HostScene scene;
  const host::Documents documents = scene.app().Documents();
  for (const char* name : {"a.dxf", "b.dxf", "c.dxf"}) documents.Open(scene.file(name, plan()));
  scene.app().put(Member::ActiveDocument, documents.Item("a.dxf"));
  documents.Item("c.dxf").Close(false);
  EXPECT_EQ(scene.document().Name(), "a.dxf");
  EXPECT_TRUE(scene.document().get<bool>(Member::Active));
  scene.document().Close(false);
  EXPECT_EQ(scene.document().Name(), "b.dxf");
  documents.call(Member::Close);
  EXPECT_EQ(documents.Count(), 0);
  EXPECT_EQ(failure_of([&] { scene.document(); }), -2145320900);
  EXPECT_EQ(failure_of([&] { scene.app().ZoomExtents(); }), -2145320900);
}

TEST(Documents, AClosedOneAndItsObjectsAreDisconnected) {
  HostScene scene;
  const host::Document document = scene.document();
  const host::Entity line = document.HandleToObject("30");
  document.Close(false);
  EXPECT_EQ(failure_of([&] { document.Name(); }), -2147417848);
  EXPECT_EQ(failure_of([&] { line.Layer(); }), -2147417848);
  EXPECT_EQ(failure_of([&] { scene.app().put(Member::ActiveDocument, document); }), -2147417848);
}

TEST(Documents, ANewOneHasNoFileUntilItIsSaved) {
  HostScene scene;
  const host::Documents documents = scene.app().Documents();
  documents.call(Member::Add);
  const host::Document added = scene.document();
  EXPECT_EQ(added.Name(), "Drawing1.dwg");
  EXPECT_EQ(added.FullName() + added.Path(), "");
  EXPECT_EQ(failure_of([&] { added.Save(); }), saving_failed);
  added.call(Member::SaveAs, scene.path("new"), 13);
  EXPECT_EQ(added.FullName(), scene.path("new.dxf"));
  documents.call(Member::Add, scene.path("plan.dxf"));
  EXPECT_EQ(scene.document().Name(), "Drawing2.dwg");
  EXPECT_EQ(scene.document().ModelSpace().Count(), 6);
}

TEST(Document, SavesUnderItsName) {
  HostScene scene;
  const host::Document document = scene.document();
  EXPECT_TRUE(document.get<bool>(Member::Saved));
  document.HandleToObject("30").Delete();
  EXPECT_FALSE(document.get<bool>(Member::Saved));
  EXPECT_EQ(scene.content("plan.dxf"), plan());
  document.Save();
  EXPECT_TRUE(document.get<bool>(Member::Saved));
  EXPECT_NE(scene.content("plan.dxf"), plan());
}

TEST(Document, ReadOnlyIsNotSavedButUnderAnotherName) {
  HostScene scene;
  const host::Documents documents = scene.app().Documents();
  const std::string path = scene.file("fixed.dxf", plan());
  documents.call(Member::Open, path, true);
  const host::Document document = scene.document();
  EXPECT_TRUE(document.get<bool>(Member::ReadOnly));
  document.HandleToObject("30").Delete();
  EXPECT_EQ(failure_of([&] { document.Save(); }), saving_failed);
  EXPECT_EQ(failure_of([&] { document.Close(true); }), saving_failed);
  EXPECT_EQ(scene.content("fixed.dxf"), plan());
  document.call(Member::SaveAs, scene.path("copy.dxf"));
  EXPECT_FALSE(document.get<bool>(Member::ReadOnly));
  EXPECT_EQ(document.Name(), "copy.dxf");
}

TEST(Document, SaveAsAppendsTheExtensionOfItsType) {
  struct Row {
    const char* name;
    Value type;
    const char* saved_as;  // null: refused
  };
  const std::int32_t dxf_2000 = 13, dwg_2000 = 12, dxf_2004 = 25, dxf_r14 = 9;
  const Row rows[] = {
      {"a", dxf_2000, "a.dxf"},
      {"a.v2", dxf_2000, "a.v2.dxf"},
      {"a.DXF", dxf_2000, "a.DXF"},
      {"a.dxf", basic::LeftOut{}, "a.dxf"},
      {"a", basic::LeftOut{}, nullptr},  // Preferences say the native format
      {"a.dwg", dwg_2000, nullptr},
      {"a.dxf", dwg_2000, nullptr},
      {"a", dxf_2004, "a.dxf"},
      {"a", dxf_r14, nullptr},
      {"a", std::int32_t{0}, nullptr},
      {"", dxf_2000, nullptr},
      {"no/such/folder/a.dxf", dxf_2000, nullptr},
  };
  for (const Row& row : rows) {
    HostScene scene;
    const host::Document document = scene.document();
    const std::string path = *row.name ? scene.path(row.name) : "";
    const auto failed = failure_of([&] { document.call(Member::SaveAs, path, row.type); });
    EXPECT_EQ(failed == 0, row.saved_as != nullptr) << row.name;
    EXPECT_EQ(document.FullName(), scene.path(row.saved_as ? row.saved_as : "plan.dxf"))
        << row.name;
    EXPECT_EQ(std::filesystem::exists(scene.path(row.saved_as ? row.saved_as : "a.dxf")),
              row.saved_as != nullptr)
        << row.name;
  }
}

TEST(Document, SaveAsAnotherReleaseKeepsTheDrawingAndTheRelease) {
  HostScene scene;
  const host::Document document = scene.document();
  const std::int32_t dxf_r12 = 1;
  document.call(Member::SaveAs, scene.path("old"), dxf_r12);
  EXPECT_EQ(document.Name(), "old.dxf");
  EXPECT_EQ(scene.content("plan.dxf"), plan());
  EXPECT_TRUE(document.get<bool>(Member::Saved));
  EXPECT_EQ(drawing::Drawing::open(scene.path("old.dxf")).version(), "AC1009");
  const auto count = document.ModelSpace().Count();
  document.HandleToObject("30").Delete();
  document.Save();
  EXPECT_EQ(document.ModelSpace().Count(), count - 1);
  const auto saved = drawing::Drawing::open(scene.path("old.dxf"));
  EXPECT_EQ(saved.version(), "AC1009");
  EXPECT_EQ(saved.find(0x30), drawing::RecordId::none);
}

TEST(Document, SaveAsFollowsPreferencesAndSparesOpenFiles) {
  HostScene scene;
  const auto page =
      scene.app().get<host::View>(Member::Preferences).get<host::View>(Member::OpenSave);
  EXPECT_NE(failure_of([&] { page.put(Member::SaveAsType, 0); }), 0);
  page.put(Member::SaveAsType, 13);
  EXPECT_EQ(page.get<std::int32_t>(Member::SaveAsType), 13);
  scene.document().call(Member::SaveAs, scene.path("by preference"));
  EXPECT_EQ(scene.document().Name(), "by preference.dxf");

  const host::Document second = scene.app().Documents().Open(scene.path("plan.dxf"));
  EXPECT_EQ(failure_of([&] { second.call(Member::SaveAs, scene.path("by preference.dxf")); }),
            saving_failed);
  EXPECT_EQ(second.Name(), "plan.dxf");
}

TEST(Document, CloseSavesOnlyWhatWasChanged) {
  struct Row {
    Value save_changes;
    bool saved;
  };
  for (const Row& row : {Row{false, false}, Row{true, true}, Row{basic::LeftOut{}, true}}) {
    HostScene scene;
    scene.document().HandleToObject("30").Delete();
    scene.document().call(Member::Close, row.save_changes);
    EXPECT_EQ(scene.content("plan.dxf") != plan(), row.saved);
  }
  HostScene scene;
  scene.document().HandleToObject("30").Delete();
  scene.document().call(Member::Close, true, scene.path("other.dxf"));
  EXPECT_EQ(scene.content("plan.dxf"), plan());
  EXPECT_NE(scene.content("other.dxf"), "");
}

TEST(Document, FindsObjectsByHandleAndById) {
  HostScene scene;
  const host::Document document = scene.document();
  EXPECT_EQ(document.HandleToObject("1e").get<std::string>(Member::Name), "DOOR");
  EXPECT_EQ(document.HandleToObject("35").ObjectName(), "AcDbAttribute");
  EXPECT_EQ(document.HandleToObject("11").get<std::string>(Member::Name), "Walls");
  const Value id = document.HandleToObject("31").get<Value>(Member::ObjectID);
  EXPECT_EQ(host::from_value<host::Entity>(document.call(Member::ObjectIdToObject, id)).Handle(),
            "31");
  document.HandleToObject("30").Delete();
  EXPECT_EQ(failure_of([&] { document.HandleToObject("30"); }), -2145386420);
  for (const char* unknown : {"999", "0", "", "line"}) {
    EXPECT_EQ(failure_of([&] { document.HandleToObject(unknown); }), -2145386484) << unknown;
  }
  EXPECT_NE(failure_of([&] { document.call(Member::ObjectIdToObject, 100000); }), 0);
}

TEST(Document, VariablesHoldWhileTheDrawingIsOpen) {
  HostScene scene;
  const host::Document document = scene.document();
  const auto get = [&](const char* name) { return document.call(Member::GetVariable, name); };
  const auto set = [&](const char* name, const Value& value) {
    return failure_of([&] { document.call(Member::SetVariable, name, Value(value)); });
  };
  EXPECT_EQ(get("clayer"), Value("Walls"));
  EXPECT_EQ(set("CLAYER", "locked"), 0);
  EXPECT_EQ(get("CLAYER"), Value("Locked"));
  EXPECT_EQ(document.get<host::Layer>(Member::ActiveLayer).Name(), "Locked");
  EXPECT_EQ(set("CLAYER", "none"), -2145386476);
  document.Layers().Item("0").put(Member::Freeze, true);
  EXPECT_EQ(set("CLAYER", "0"), -2145386348);
  EXPECT_EQ(get("CLAYER"), Value("Locked"));

  EXPECT_EQ(get("DWGPREFIX"), Value(scene.path("")));
  EXPECT_EQ(get("DWGNAME"), Value("plan.dxf"));
  EXPECT_NE(set("DWGNAME", "x"), 0);
  EXPECT_EQ(set("cmdecho", 0), 0);
  EXPECT_EQ(get("CMDECHO"), Value(std::int16_t{0}));
  EXPECT_NE(set("CECOLOR", "300"), 0);
  EXPECT_EQ(get("CECOLOR"), Value("BYLAYER"));
  EXPECT_NE(failure_of([&] { get("NOSUCH"); }), 0);
}

TEST(Document, AnswersAndLastFollowTheActiveSpace) {
  HostScene scene({"L"});
  scene.app().Documents().call(Member::Add);
  const host::Document document = scene.document();
  const host::Line model = document.ModelSpace().AddLine({0, 0, 0}, {1, 1, 0});
  document.put(Member::ActiveSpace, 0);
  EXPECT_EQ(document.call(Member::GetVariable, "TILEMODE"), Value(std::int16_t{0}));
  const host::ModelSpace paper = document.get<host::ModelSpace>(Member::PaperSpace);
  const host::Line drawn = paper.AddLine({0, 0, 0}, {2, 2, 0});
  document.ModelSpace().AddLine({5, 5, 0}, {6, 6, 0});
  EXPECT_EQ(document.Utility().GetEntity("Select").Handle(), drawn.Handle());
  scene.user.add("#" + model.Handle());  // by handle also in the other space
  EXPECT_EQ(document.Utility().GetEntity("Select").Handle(), model.Handle());
}

TEST(Application, TellsWhatItIs) {
  HostScene scene;
  EXPECT_EQ(scene.app().Caption(), "Velmar 2006 - [plan.dxf]");
  EXPECT_EQ(scene.app().get<host::Application>(Member::Application).object(), scene.application);
  const host::Entity line = scene.document().HandleToObject("30");
  EXPECT_EQ(line.get<host::Application>(Member::Application).object(), scene.application);
  EXPECT_EQ(line.get<host::Document>(Member::Document).Name(), "plan.dxf");
  EXPECT_EQ(scene.document().get<host::Document>(Member::Database).Name(), "plan.dxf");
  scene.app().put(Member::WindowState, 1);
  EXPECT_NE(failure_of([&] { scene.app().put(Member::WindowState, 4); }), 0);
  EXPECT_EQ(scene.app().get<std::int32_t>(Member::WindowState), 1);
}

TEST(Host, StartsWithTheFirstDrawingActive) {
  HostScene scene;
  const std::string second = scene.file("second.dxf", plan());
  const auto application = start(scene.user, {{second, scene.path("plan.dxf")}});
  EXPECT_EQ(application->active()->drawing.path(), second);
  EXPECT_EQ(application->documents().size(), 2u);
  EXPECT_EQ(failure_of([&] { start(scene.user, {{scene.path("missing.dxf")}}); }), -2145320924);
}

}  // namespace
}  // namespace velmar::embedded
