#include <gmock/gmock.h>

#include "scenes/browsed.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using testing::ElementsAre;

TEST(LoadAllCurrentDrawings, OpensTheListAndShowsEachFolderOnce) {
  Scene scene{std::string()};
  const std::filesystem::path other = scene.folder() / "other";
  std::filesystem::create_directory(other);
  const std::string second = scene.file("second.dxf", scene.content("plan.dxf")).string();
  const std::string third = (other / "third.dxf").string();
  std::filesystem::copy_file(second, third);
  const std::string list = scene.system().special_folder(26) + "/CurrentDrawings.Txt";

  EXPECT_FALSE(scene.run("LoadAllCurrentDrawings").failure);  // without a list
  EXPECT_EQ(scene.application().Documents().Count(), 1);

  scene.system().write_text(list, third + "*" + second + "*missing.dxf*never.dxf\r\n");
  EXPECT_FALSE(scene.run("LoadAllCurrentDrawings").failure);
  ASSERT_EQ(scene.application().Documents().Count(), 3);
  EXPECT_EQ(scene.application().Documents().Item(1).Name(), "third.dxf");
  EXPECT_THAT(browsed,
              ElementsAre(scene.folder().string(), other.string(), scene.folder().string()));
}

}  // namespace
}  // namespace velmar
