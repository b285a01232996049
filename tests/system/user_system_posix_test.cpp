#include <gtest/gtest.h>
#include <pwd.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "basic/failure.h"
#include "system/user_system.h"

namespace velmar::system {
namespace {

namespace fs = std::filesystem;

class Environment : public testing::Test {
 protected:
  Environment() { fs::create_directory(top_); }
  ~Environment() override { fs::remove_all(top_); }

  const fs::path top_ =
      fs::temp_directory_path() / ("velmar-system-" + std::to_string(std::random_device{}()));
  const std::shared_ptr<System> system_ = user_system();
};

TEST_F(Environment, TellsWhereSettingsAndDataAre) {
  ::setenv("HOME", top_.c_str(), 1);
  ::setenv("XDG_CONFIG_HOME", "not/absolute", 1);
  ::unsetenv("XDG_DATA_HOME");
  system_->save_setting({"Velmar", "Key", "CLT"}, "Upper");
  std::ostringstream text;
  text << std::ifstream(top_ / ".config/velmar/settings.ini").rdbuf();
  EXPECT_EQ(text.str(), "[Velmar\\Key]\nCLT=Upper\n");
  EXPECT_EQ(system_->special_folder(26), (top_ / ".local/share/velmar").string());
  ::setenv("XDG_DATA_HOME", (top_ / "d").c_str(), 1);
  EXPECT_EQ(system_->special_folder(26), (top_ / "d/velmar").string());
  EXPECT_FALSE(fs::exists(top_ / "d"));
}

TEST_F(Environment, WritesSettingsThroughALinkAndLeavesNothingBeside) {
  ::setenv("XDG_CONFIG_HOME", top_.c_str(), 1);
  fs::create_directories(top_ / "velmar");
  std::ofstream(top_ / "dotfile") << "[Velmar\\Key]\nCLT=Lower\n";
  fs::create_symlink(top_ / "dotfile", top_ / "velmar/settings.ini");
  system_->save_setting({"Velmar", "Key", "CLT"}, "Title");
  EXPECT_TRUE(fs::is_symlink(top_ / "velmar/settings.ini"));
  EXPECT_EQ(system_->setting({"Velmar", "Key", "CLT"}), "Title");
  EXPECT_EQ(std::distance(fs::directory_iterator(top_), fs::directory_iterator()), 2);
}

TEST_F(Environment, FindsTheFoldersOfAUserWithoutVariables) {
  ::unsetenv("HOME");
  ::unsetenv("XDG_DATA_HOME");
  const fs::path home = ::getpwuid(::getuid())->pw_dir;
  EXPECT_EQ(system_->special_folder(26), (home / ".local/share/velmar").string());
}

TEST_F(Environment, MovesAFileToAnotherFileSystemOrNotAtAll) {
  const fs::path there = "/dev/shm/" + top_.filename().string();  // in memory, where it is mounted
  std::ofstream(top_ / "small") << "content";
  std::ofstream(top_ / "large") << std::string(1 << 20, 'x');
  system_->move_file((top_ / "small").string(), there.string());
  EXPECT_EQ(system_->read_text(there.string()), "content");
  EXPECT_FALSE(fs::exists(top_ / "small"));
  fs::remove(there);

  struct ::stat here_status {
  }, there_status{};
  ::stat(top_.c_str(), &here_status);
  ::stat("/dev/shm", &there_status);
  const bool is_renamed = here_status.st_dev == there_status.st_dev;
  rlimit usual{};
  ::getrlimit(RLIMIT_FSIZE, &usual);
  const rlimit little{4096, usual.rlim_max};
  ::signal(SIGXFSZ, SIG_IGN);
  ::setrlimit(RLIMIT_FSIZE, &little);
  const auto move = [&] { system_->move_file((top_ / "large").string(), there.string()); };
  if (is_renamed) {
    move();
  } else {
    EXPECT_THROW(move(), basic::Failure);
  }
  ::setrlimit(RLIMIT_FSIZE, &usual);
  EXPECT_NE(fs::exists(there), fs::exists(top_ / "large"));
  EXPECT_EQ(fs::file_size(is_renamed ? there : top_ / "large"), 1u << 20);
  fs::remove(there);
}

TEST_F(Environment, TellsTheMarksInNumbers) {
  ::setenv("LC_ALL", "C", 1);
  EXPECT_EQ(system_->separators().decimal, '.');
  EXPECT_EQ(system_->separators().group, ',');
  ::setenv("LC_ALL", "xx_NONE", 1);
  EXPECT_EQ(system_->separators().decimal, '.');
  ::unsetenv("LC_ALL");
}

TEST_F(Environment, WritesFoldersWhereNothingCanShowThem) {
  ::unsetenv("DISPLAY");
  ::unsetenv("WAYLAND_DISPLAY");
  testing::internal::CaptureStderr();
  system_->browse("/tmp/a b");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "/tmp/a b\n");
  ::setenv("DISPLAY", ":99", 1);
  const std::string path = ::getenv("PATH");
  ::setenv("PATH", top_.c_str(), 1);
  try {
    system_->browse("/tmp");
    ADD_FAILURE() << "a browser that is not there was started";
  } catch (const basic::Failure& failure) {
    EXPECT_EQ(failure.number, basic::file_not_found);
  }
  // A browser that tells what it was given.
  const fs::path browser = top_ / "xdg-open";
  std::ofstream(browser) << "#!/bin/sh\necho \"$#$1\" >" << (top_ / "told.part").string()
                         << "\n/bin/mv " << (top_ / "told.part").string() << " "
                         << (top_ / "told").string() << "\n";
  fs::permissions(browser, fs::perms::owner_all);
  system_->browse("/tmp/a b");
  for (int i = 0; i < 5000 && !fs::exists(top_ / "told"); ++i) system_->process_events();
  std::string told;
  std::getline(std::ifstream(top_ / "told"), told);
  EXPECT_EQ(told, "1/tmp/a b");
  ::setenv("PATH", path.c_str(), 1);
  ::unsetenv("DISPLAY");
}

}  // namespace
}  // namespace velmar::system
