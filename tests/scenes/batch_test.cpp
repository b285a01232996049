#include <gmock/gmock.h>

#include <fstream>

#include "scenes/entity_lines.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

namespace fs = std::filesystem;

using embedded::head;
using host::Member;
using host::Point;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t no_document = -2145320900, not_a_drawing = -2145320825;

/// A folder of drawings beside the one that is open.
class Folder {
 public:
  explicit Folder(const Scene& scene) : path_(scene.folder() / "drawings") {
    fs::create_directory(path_);
  }
  fs::path add(const std::string& name, const std::string& content) const {
    fs::create_directories((path_ / name).parent_path());
    std::ofstream(path_ / name, std::ios::binary) << content;
    return path_ / name;
  }
  std::string content(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  bool has(const std::string& name) const { return fs::exists(path_ / name); }
  std::string path() const { return path_.string(); }

 private:
  fs::path path_;
};

std::string with_unused_layer() {
  std::string text = embedded::drawing_text(line_lines("30", "Walls"));
  const std::string row = embedded::tags(
      "0 LAYER\n5 13\n100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 Unused\n70 0\n62 1\n"
      "6 Continuous\n");
  const std::size_t end = text.find(embedded::tags("0 ENDTAB\n0 TABLE\n2 STYLE\n"));
  return text.insert(end, row);
}

bool has_layer(const std::string& drawing, const std::string& name) {
  return drawing::Drawing::read(drawing, name).find_layer(name).has_value();
}

TEST(UnloadXref, UnloadsTheFirstReferenceOfThatNameAndReloadsItWithTheNextCall) {
  Scene scene{std::string()};
  const auto model = scene.document().get<host::View>(Member::ModelSpace);
  for (const char* const name : {"Title_tb", "A2-TB", "XREF-SITE"}) {
    scene.file(std::string(name) + ".dwg", "a drawing");
    model.call(Member::AttachExternalReference, std::string(name) + ".dwg", name, Point{}, 1.0, 1.0,
               1.0, 0.0, false);
  }
  const auto loaded = [&] {
    constexpr std::int32_t resolved = 32;
    std::string names;
    for (const char* const name : {"Title_tb", "A2-TB", "XREF-SITE"}) {
      const auto space = drawing::index(*scene.drawing().find_space(name));
      if ((scene.drawing().spaces()[space].flags & resolved) != 0) names += std::string(name) + " ";
    }
    return names;
  };
  EXPECT_EQ(loaded(), "Title_tb A2-TB XREF-SITE ");
  EXPECT_FALSE(scene.run("Unload_TB").failure);
  EXPECT_EQ(loaded(), "A2-TB XREF-SITE ");
  EXPECT_FALSE(scene.run("Unload_Xref").failure);
  EXPECT_EQ(loaded(), "A2-TB ");
  EXPECT_FALSE(scene.run("Unload_TB").failure);
  EXPECT_EQ(loaded(), "Title_tb A2-TB ");

  fs::remove(scene.folder() / "XREF-SITE.dwg");
  EXPECT_TRUE(scene.run("Unload_Xref").failure) << "there is nothing to load";
  EXPECT_EQ(loaded(), "Title_tb A2-TB ");
}

TEST(PurgeALLFolder, PurgesThoseOfTheSubfoldersOnlyWhereThereAreAny) {
  Scene scene(line_lines("30"));
  const Folder folder(scene);
  folder.add("a.dwg", with_unused_layer());
  folder.add("b.DWG", with_unused_layer());
  folder.add("c.dxf", with_unused_layer());
  EXPECT_FALSE(scene.run("PurgeALLFolder", folder.path()).failure);
  EXPECT_FALSE(has_layer(folder.content("a.dwg"), "Unused"));
  EXPECT_FALSE(has_layer(folder.content("b.DWG"), "Unused"));
  EXPECT_TRUE(has_layer(folder.content("c.dxf"), "Unused"));

  folder.add("a.dwg", with_unused_layer());
  folder.add("sub/d.dwg", with_unused_layer());
  folder.add("sub/deeper/e.dwg", with_unused_layer());
  scene.run("PurgeALLFolder", folder.path());
  EXPECT_TRUE(has_layer(folder.content("a.dwg"), "Unused"));
  EXPECT_FALSE(has_layer(folder.content("sub/d.dwg"), "Unused"));
  EXPECT_TRUE(has_layer(folder.content("sub/deeper/e.dwg"), "Unused"));

  EXPECT_FALSE(scene.run("PurgeALLFolder", folder.path() + "/missing").failure);
  EXPECT_EQ(scene.application().Documents().Count(), 1);
}

TEST(PurgeALLFolder, HarmsNeitherWhatItCannotOpenNorTheActiveDrawing) {
  Scene scene(line_lines("30"));
  const Folder folder(scene);
  const std::string drawing = "AC1015" + std::string(200, '\0');  // a native drawing's beginning
  folder.add("a.dwg", drawing);
  folder.add("b.dwg", "");
  folder.add("c.dwg", "garbage");
  folder.add("d.dwg", with_unused_layer());
  EXPECT_FALSE(scene.run("PurgeALLFolder", folder.path()).failure);
  EXPECT_EQ(folder.content("a.dwg"), drawing);
  EXPECT_EQ(folder.content("b.dwg"), "");
  EXPECT_EQ(folder.content("c.dwg"), "garbage");
  EXPECT_FALSE(has_layer(folder.content("d.dwg"), "Unused"));
  EXPECT_EQ(scene.application().Documents().Count(), 1);
  EXPECT_TRUE(scene.has("30"));
  EXPECT_TRUE(scene.drawing().changes().empty());
}

TEST(PurgeALLFolder, LeavesWriteProtectedDrawingsAsTheyAre) {
  Scene scene(line_lines("30"));
  const Folder folder(scene);
  const fs::path kept = folder.add("kept.dwg", with_unused_layer());
  fs::permissions(kept, fs::perms::owner_read);
  folder.add("purged.dwg", with_unused_layer());
  EXPECT_FALSE(scene.run("PurgeALLFolder", folder.path()).failure);
  EXPECT_EQ(folder.content("kept.dwg"), with_unused_layer());
  EXPECT_FALSE(has_layer(folder.content("purged.dwg"), "Unused"));
  EXPECT_EQ(scene.application().Documents().Count(), 1);
  EXPECT_EQ(scene.run("DeleteLayouts", folder.path()).failure.has_value(), true);
  EXPECT_EQ(folder.content("kept.dwg"), with_unused_layer());
  fs::permissions(kept, fs::perms::owner_all);
}

TEST(FolderCommands, TakeTwoHundredDrawings) {
  constexpr int count = 200;
  Scene scene(line_lines("30"));
  const Folder folder(scene);
  std::string drawing = with_unused_layer();
  drawing.replace(drawing.find("AC1015"), 6, "AC1018");
  const auto name = [](int i, std::string_view type) {
    return "sheet " + std::to_string(i) + "." + std::string(type);
  };
  for (int i = 0; i < count; ++i) folder.add(name(i, i % 2 == 0 ? "dwg" : "DWG"), drawing);
  folder.add("sheet 7.txt", drawing);
  scene.run("FolderDwgDxf", folder.path());
  scene.run("PurgeALLFolder", folder.path());
  for (int i = 0; i < count; ++i) {
    ASSERT_TRUE(has_layer(folder.content(name(i, "dxf")), "Unused")) << i;
    ASSERT_FALSE(has_layer(folder.content(name(i, i % 2 == 0 ? "dwg" : "DWG")), "Unused")) << i;
  }
  EXPECT_EQ(folder.content("sheet 7.txt"), drawing);
  EXPECT_EQ(scene.application().Documents().Count(), 1);
}

TEST(FolderDwgDxf, SavesEachDrawingInTheExchangeFormatOfTheRelease) {
  Scene scene(line_lines("30"));
  const Folder folder(scene);
  std::string drawing = with_unused_layer();
  drawing.replace(drawing.find("AC1015"), 6, "AC1018");
  folder.add("plan.dwg", drawing);
  folder.add("old.dwg", with_unused_layer());
  const auto type = [&] { return scene.application().Preferences().OpenSave().SaveAsType(); };
  const std::int32_t users = type();
  EXPECT_FALSE(scene.run("FolderDwgDxf", folder.path()).failure);
  EXPECT_TRUE(folder.has("plan.dxf"));
  EXPECT_EQ(folder.content("plan.dwg"), drawing);
  EXPECT_EQ(folder.content("old.dwg"), with_unused_layer());
  EXPECT_NE(folder.content("old.dxf").find("AC1018"), std::string::npos);
  EXPECT_TRUE(has_layer(folder.content("old.dxf"), "Unused"));
  EXPECT_EQ(type(), users);
  EXPECT_EQ(scene.application().Documents().Count(), 1);
}

TEST(FolderDGN, TypesTheImportOnceForEachDesignFile) {
  Scene scene(line_lines("30"));
  const Folder folder(scene);
  folder.add("a.dgn", "");
  folder.add("b.DGN", "");
  EXPECT_FALSE(scene.run("FolderDGN", folder.path()).failure);
  EXPECT_EQ(scene.run("FolderDGN", folder.path() + "/missing").failure->number,
            basic::path_not_found);
}

TEST(DelFilNam, RenamesOnlyWhereThatReplacesAFile) {
  Scene scene{std::string()};
  const Folder folder(scene);
  folder.add("a_OLD.dwg", "new a");
  folder.add("a.dwg", "a");
  folder.add("b_old.dwg", "new b");
  folder.add("c_old_old.dwg", "new c");
  folder.add("c", "c");
  folder.add("d.dwg", "d");
  EXPECT_FALSE(scene.run("DelFilNam", folder.path(), "_old", "dwg").failure);
  EXPECT_EQ(folder.content("a.dwg"), "a");  // no file's extension is in lower case

  EXPECT_FALSE(scene.run("DelFilNam", folder.path(), "_old", "DWG").failure);
  EXPECT_EQ(folder.content("a.dwg"), "new a");
  EXPECT_FALSE(folder.has("a_OLD.dwg"));
  EXPECT_TRUE(folder.has("b_old.dwg"));
  EXPECT_EQ(folder.content("c"), "new c");
  EXPECT_EQ(folder.content("d.dwg"), "d");
}

TEST(SaveAllDrawings, SavesAndClosesWhatHasAFile) {
  Scene scene(line_lines("30") + line_lines("31"));
  scene.entity<host::Line>("30").Delete();
  scene.application().Documents().call(host::Member::Add);
  EXPECT_FALSE(scene.run("SaveAllDrawings").failure);
  EXPECT_EQ(scene.application().Documents().Count(), 1);
  EXPECT_EQ(scene.application().Documents().Item(0).FullName(), "");
  EXPECT_EQ(drawing::Drawing::read(scene.content("plan.dxf"), "plan")
                .entity_count(drawing::SpaceId::model),
            1U);
}

TEST(SaveAllCurrentDrawings, ListsTheLastOneFirst) {
  Scene scene{std::string()};
  const std::string separator(1, scene.system().path_separator());
  const fs::path in_windows = scene.folder() / "my windows";
  fs::create_directory(in_windows);
  const std::string plan = scene.content("plan.dxf");
  std::ofstream(in_windows / "no.dxf", std::ios::binary) << plan;
  scene.application().Documents().Open(scene.file("second.dxf", plan).string());
  scene.application().Documents().Open((in_windows / "no.dxf").string());
  EXPECT_FALSE(scene.run("SaveAllCurrentDrawings").failure);

  const std::string file = scene.system().special_folder(26) + separator + "CurrentDrawings.Txt";
  std::vector<std::string> names;
  for (const host::Document& document : scene.application().Documents()) {
    names.push_back(document.Path() + separator + document.Name() + "*");
  }
  EXPECT_EQ(scene.system().read_text(file), names.at(1) + names.at(0) + "\r\n");
  scene.system().delete_file(file);
}

std::string three_doors_and_a_line() {
  const std::string insert = "100 AcDbBlockReference\n2 DOOR\n10 5\n20 5\n30 0\n";
  return head("INSERT", "30") + insert + head("INSERT", "31") + insert + line_lines("32") +
         head("INSERT", "33", "Walls") + insert;
}

TEST(ExplodeBlock, HandlesEveryInsertionInModelSpace) {
  Scene scene(three_doors_and_a_line());
  scene.answers({"#31"});
  EXPECT_FALSE(scene.run("ExplodeBlock").failure);
  EXPECT_THAT(scene.asked(),
              ElementsAre("\r\nSelect the Block you want to explode in all drawing "));
  EXPECT_THAT(scene.said(),
              ElementsAre("\r\nBlock Name {DOOR} Explod 3 found", "\r\nAutocad Ready."));
  EXPECT_EQ(scene.document().ModelSpace().Count(), 4);
}

TEST(DeleteBlock, RemovesEveryInsertionAndFailsOnOtherPicks) {
  Scene scene(three_doors_and_a_line());
  EXPECT_EQ(scene.answers({"#32"}).run("DeleteBlock").failure->number, basic::type_mismatch);
  EXPECT_TRUE(scene.drawing().changes().empty());
  EXPECT_EQ(scene.answers({"^C"}).run("DeleteBlock").failure->number, -2147352567);
  EXPECT_THAT(scene.said(), IsEmpty());
  scene.answers({"#30"}).run("DeleteBlock");
  EXPECT_EQ(scene.said().front(), "\r\nBlock Name {DOOR} Erase 3 found");
  EXPECT_EQ(scene.document().ModelSpace().Count(), 1);
}

TEST(Delete_OLE, RemovesTwoHundredARun) {
  std::string frames;
  for (int i = 0; i < 250; ++i) {
    frames += head("OLE2FRAME", drawing::handle_text(static_cast<drawing::Handle>(0x100 + i))) +
              "100 AcDbOle2Frame\n70 2\n3 Sheet\n10 0\n20 5\n30 0\n11 5\n21 0\n31 0\n71 2\n72 1\n"
              "90 0\n1 OLE\n";
  }
  Scene scene(frames + line_lines("30"));
  scene.run("Delete_OLE");
  EXPECT_EQ(scene.document().ModelSpace().Count(), 51);
  EXPECT_THAT(scene.said(), ElementsAre("\r\nAutocad Ready."));
  scene.run("Delete_OLE");
  EXPECT_EQ(scene.document().ModelSpace().Count(), 1);
}

TEST(Layouts, AreZoomedAndDeleted) {
  Scene scene(fs::path(VELMAR_CORPUS) / "dxf-parser" / "api-cw750-details.dxf");
  const std::int32_t layouts = scene.document().Layouts().Count();
  ASSERT_GT(layouts, 1);
  const std::string drawing = scene.content("api-cw750-details.dxf");
  EXPECT_FALSE(scene.run("ZoomLayouts").failure);
  EXPECT_NE(scene.document().ActiveLayout().Name(), "Model");
  EXPECT_THAT(scene.said(), IsEmpty());

  const Folder folder(scene);
  folder.add("a.dwg", drawing);
  folder.add("c.dxf", drawing);
  EXPECT_FALSE(scene.run("DeleteLayouts", folder.path()).failure);
  EXPECT_EQ(folder.content("c.dxf"), drawing);
  const auto left = drawing::Drawing::read(folder.content("a.dwg"), "a");
  EXPECT_EQ(left.layouts().size(), 2U);  // the host makes an empty one in place of the last
  EXPECT_EQ(left.layouts().back().name, "Layout1");

  folder.add("b.dwg", "garbage");
  EXPECT_EQ(scene.run("DeleteLayouts", folder.path()).failure->number, not_a_drawing);
}

TEST(SlowDown, WaitsAndOverflows) {
  Scene scene{std::string()};
  const std::int32_t start = scene.system().tick_count();
  EXPECT_FALSE(scene.run("SlowDown", std::int32_t{60}).failure);
  EXPECT_GE(scene.system().tick_count() - start, 60);
  EXPECT_FALSE(scene.run("SlowDown", std::int32_t{-5}).failure);
}

TEST(ClosedDrawings, LeaveNothingForACommand) {
  Scene scene(line_lines("30"));
  scene.document().Close(false);
  EXPECT_EQ(scene.run("ZoomLayouts").failure->number, no_document);
}

}  // namespace
}  // namespace velmar
