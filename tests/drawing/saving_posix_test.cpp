#include <sys/resource.h>

#include <csignal>

#include "saving.h"

namespace velmar::drawing {
namespace {

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

TEST_F(Saving, IsRefusedWhereAnotherProgramWroteIntoTheFileInPlace) {
  Drawing drawing = Drawing::open(path_);
  change(drawing, "two");
  const std::string theirs(get(path_).size(), 'x');
  put(path_, theirs);
  fs::last_write_time(path_, fs::last_write_time(path_) + std::chrono::seconds(2));
  EXPECT_THROW(drawing.save(path_), Error);
  EXPECT_THROW(drawing.save(folder_ / "other.dxf"), Error) << "of bytes that were not read";
  EXPECT_EQ(get(path_), theirs);
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

TEST_F(Saving, IsRefusedToADevice) {
  EXPECT_THROW(Drawing::open(path_).save("/dev/full"), Error);
  EXPECT_EQ(files(), 1u);
}

TEST_F(Saving, KeepsWhoMayReadAndWriteTheFile) {
  Drawing drawing = Drawing::open(path_);
  fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write);
  change(drawing, "two");
  drawing.save(path_);
  EXPECT_EQ(fs::status(path_).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace
}  // namespace velmar::drawing
