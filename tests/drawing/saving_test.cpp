#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "drawing/drawing.h"
#include "sample_text.h"

namespace velmar::drawing {
namespace {

namespace fs = std::filesystem;

const std::string text =
    "0 TEXT 5 2F 330 1F 100 AcDbEntity 8 Walls 100 AcDbText 10 1.0 20 2.0 30 0.0 40 2.5 1 one 100 "
    "AcDbText ";

class Saving : public testing::Test {
 protected:
  Saving() {
    std::string name = (fs::temp_directory_path() / "velmar-XXXXXX").string();
    folder_ = ::mkdtemp(name.data());
    path_ = folder_ / "plan.dxf";
    put(path_, drawing_of("AC1015", text));
  }
  ~Saving() override { fs::remove_all(folder_); }

  static void put(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  static std::string get(const fs::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
  }
  static void change(Drawing& drawing, const std::string& to) {
    const RecordId id = drawing.find(0x2F);
    Entity entity = drawing.read(id);
    std::get<Text>(entity.body).text = to;
    drawing.write(id, entity);
  }
  std::size_t files() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder_), fs::directory_iterator()));
  }

  fs::path folder_, path_;
};

TEST_F(Saving, ReplacesTheFileAndGoesOnFromThere) {
  Drawing drawing = Drawing::open(path_);
  fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write);
  change(drawing, "two");
  EXPECT_EQ(drawing.changes().modified, std::vector<Handle>{0x2F});
  drawing.save(path_);
  EXPECT_FALSE(drawing.is_changed());
  EXPECT_TRUE(drawing.changes().empty());
  EXPECT_EQ(fs::status(path_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
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

TEST_F(Saving, LeavesTheOldFileWholeWhenTheDiskIsFull) {
  Drawing drawing = Drawing::open(path_);
  change(drawing, std::string(100'000, 'x'));
  const std::string before = get(path_);
  // A limit on the size of files stands for a disk that fills up on the way.
  const auto old_handler = std::signal(SIGXFSZ, SIG_IGN);
  rlimit old_limit{};
  ::getrlimit(RLIMIT_FSIZE, &old_limit);
  const rlimit limit{50'000, old_limit.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &limit);
  EXPECT_THROW(drawing.save(path_), Error);
  EXPECT_THROW(drawing.save(folder_ / "new.dxf"), Error);
  ::setrlimit(RLIMIT_FSIZE, &old_limit);
  std::signal(SIGXFSZ, old_handler);
  EXPECT_EQ(get(path_), before);
  EXPECT_EQ(files(), 1u);
  EXPECT_TRUE(drawing.is_changed());
}

TEST_F(Saving, IsRefusedWhereNoFileCanBe) {
  Drawing drawing = Drawing::open(path_);
  EXPECT_THROW(drawing.save(folder_), Error);
  EXPECT_THROW(drawing.save(folder_ / "missing" / "plan.dxf"), Error);
  EXPECT_THROW(drawing.save("/dev/full"), Error);
  EXPECT_EQ(files(), 1u);
}

TEST_F(Saving, FollowsALink) {
  fs::create_symlink(path_, folder_ / "link.dxf");
  Drawing drawing = Drawing::open(folder_ / "link.dxf");
  change(drawing, "through the link");
  drawing.save(folder_ / "link.dxf");
  EXPECT_TRUE(fs::is_symlink(folder_ / "link.dxf"));
  EXPECT_NE(get(path_).find("through the link"), std::string::npos);
}

}  // namespace
}  // namespace velmar::drawing
