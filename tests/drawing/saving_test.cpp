#include "saving.h"

#include "drawing/utf8_path.h"

namespace velmar::drawing {
namespace {

TEST_F(Saving, ReplacesTheFileAndGoesOnFromThere) {
  Drawing drawing = Drawing::open(path_);
  change(drawing, "two");
  EXPECT_EQ(drawing.changes().modified, std::vector<Handle>{0x2F});
  drawing.save(path_);
  EXPECT_FALSE(drawing.is_changed());
  EXPECT_TRUE(drawing.changes().empty());
  change(drawing, "three");
  drawing.save(path_);
  EXPECT_EQ(std::get<Text>(Drawing::open(path_).read(drawing.find(0x2F)).body).text, "three");
  EXPECT_EQ(files(), 1u);
}

TEST_F(Saving, IsRefusedWhereTheFileChangedSinceItWasOpened) {
  Drawing drawing = Drawing::open(path_);
  change(drawing, "mine");
  const std::string theirs = get(path_) + "999\r\ntheirs\r\n";
  fs::remove(path_);
  put(path_, theirs);
  EXPECT_THROW(drawing.save(path_), Error);
  EXPECT_EQ(get(path_), theirs);
  drawing.save(folder_ / "other.dxf");
  EXPECT_NE(get(folder_ / "other.dxf").find("mine"), std::string::npos);
}

TEST_F(Saving, TakesNamesOfAnyScript) {
  const std::string name = "\u00dfpl\u00e4n \u6f22\u5b57 \u0416.dxf";
  Drawing drawing = Drawing::open(path_);
  change(drawing, "two");
  drawing.save(folder_ / utf8_path(name));
  EXPECT_EQ(drawing.path().filename().string(), name);
  EXPECT_EQ(Drawing::open(folder_ / utf8_path(name)).bytes(), drawing.bytes());
  EXPECT_EQ(files(), 2u);
}

TEST_F(Saving, IsRefusedWhereNoFileCanBe) {
  Drawing drawing = Drawing::open(path_);
  EXPECT_THROW(drawing.save(folder_), Error);
  EXPECT_THROW(drawing.save(folder_ / "missing" / "plan.dxf"), Error);
  EXPECT_EQ(files(), 1u);
}

}  // namespace
}  // namespace velmar::drawing
