#include "system/user_system.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <random>
#include <thread>

#include "basic/failure.h"

namespace velmar::system {
namespace {

namespace fs = std::filesystem;

/// The user's machine, with a folder to play in and settings of its own.
class Machine : public testing::Test {
 protected:
  Machine() {
    fs::create_directory(top_);
#ifndef _WIN32
    ::setenv("XDG_CONFIG_HOME", (top_ / "config").c_str(), 1);
    ::setenv("XDG_DATA_HOME", (top_ / "data").c_str(), 1);
#endif
  }
  ~Machine() override { fs::remove_all(top_); }

  std::string path(const std::string& name) const {
    return top_.string() + system_->path_separator() + name;
  }
  void put(const std::string& name) const { system_->write_text(path(name), name); }
  template <class Act>
  static std::int32_t failure_of(Act act) {
    try {
      act();
    } catch (const basic::Failure& failure) {
      return failure.number;
    }
    return 0;
  }

  const fs::path top_ =
      fs::temp_directory_path() / ("velmar-system-" + std::to_string(std::random_device{}()));
  const std::shared_ptr<System> system_ = user_system();
};

TEST_F(Machine, ListsFilesAndFoldersByWholePath) {
  put("b.dwg");
  put("\u00e4\u6f22.txt");
  fs::create_directory(top_ / "in");
  put(std::string("in") + system_->path_separator() + "c.dwg");
  std::vector<std::string> files = system_->files(top_.string());
  std::sort(files.begin(), files.end());
  EXPECT_EQ(files, (std::vector<std::string>{path("b.dwg"), path("\u00e4\u6f22.txt")}));
  EXPECT_EQ(system_->subfolders(top_.string()), std::vector<std::string>{path("in")});
  EXPECT_EQ(failure_of([&] { system_->files(path("none")); }), basic::path_not_found);
  EXPECT_EQ(failure_of([&] { system_->subfolders(path("b.dwg")); }), basic::path_not_found);
}

TEST_F(Machine, DeletesAFileUnlessItIsReadOnly) {
  put("a.txt");
  fs::permissions(top_ / "a.txt",
                  fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                  fs::perm_options::remove);
  EXPECT_EQ(failure_of([&] { system_->delete_file(path("a.txt")); }), basic::permission_denied);
  EXPECT_EQ(failure_of([&] { system_->write_text(path("a.txt"), "b"); }), basic::path_file_access);
  EXPECT_EQ(system_->read_text(path("a.txt")), "a.txt");
  fs::permissions(top_ / "a.txt", fs::perms::owner_write, fs::perm_options::add);
  system_->delete_file(path("a.txt"));
  EXPECT_FALSE(system_->file_exists(path("a.txt")));
  EXPECT_EQ(failure_of([&] { system_->delete_file(path("a.txt")); }), basic::file_not_found);
  EXPECT_EQ(failure_of([&] { system_->delete_file(top_.string()); }), basic::file_not_found);
  EXPECT_TRUE(fs::exists(top_));
}

TEST_F(Machine, MovesAFileButNotOntoAnother) {
  put("a.txt");
  put("b.txt");
  fs::create_directory(top_ / "in");
  const auto moved_to = [&](const std::string& to) {
    return failure_of([&] { system_->move_file(path("a.txt"), path(to)); });
  };
  EXPECT_EQ(moved_to("b.txt"), basic::file_already_exists);
  EXPECT_EQ(moved_to("in"), basic::file_already_exists);
  EXPECT_EQ(moved_to(std::string("none") + system_->path_separator() + "c"), basic::path_not_found);
  EXPECT_EQ(system_->read_text(path("b.txt")), "b.txt");
  EXPECT_EQ(moved_to("\u00e4\u6f22.txt"), 0);
  EXPECT_EQ(system_->read_text(path("\u00e4\u6f22.txt")), "a.txt");
  EXPECT_EQ(moved_to("c.txt"), basic::file_not_found);
}

TEST_F(Machine, ReadsTheTextItWrote) {
  // Line ends as they are, and what Western Windows can hold.
  const std::string text = "C:\\P\\gr\u00f6\u00dfe.dwg*\r\n";
  system_->write_text(path("list.txt"), text);
  EXPECT_EQ(system_->read_text(path("list.txt")), text);
  system_->write_text(path("list.txt"), "");
  EXPECT_EQ(system_->read_text(path("list.txt")), "");
  EXPECT_EQ(failure_of([&] { system_->read_text(path("none.txt")); }), basic::file_not_found);
  const std::string lost = path(std::string("none") + system_->path_separator() + "a.txt");
  EXPECT_EQ(failure_of([&] { system_->read_text(lost); }), basic::path_not_found);
  EXPECT_EQ(failure_of([&] { system_->write_text(lost, text); }), basic::path_not_found);
  EXPECT_EQ(failure_of([&] { system_->write_text(top_.string(), text); }), basic::path_file_access);
}

TEST_F(Machine, KeepsSettingsForOtherRunsOfTheProgram) {
  const std::string section = "Test" + std::to_string(std::random_device{}());
  const SettingName name{"Velmar tests", section, "J2T"};
  EXPECT_EQ(system_->setting(name), "");
  for (const std::string value : {" - ", "sp", "", "a\r\nb\\n=\u00e4\u6f22"}) {
    system_->save_setting(name, value);
    EXPECT_EQ(user_system()->setting(name), value);
  }
  EXPECT_EQ(system_->setting({"VELMAR TESTS", section, "j2t"}), "a\r\nb\\n=\u00e4\u6f22");
  EXPECT_EQ(system_->setting({"Velmar tests", section, "J2"}), "");
}

TEST_F(Machine, HasAFolderForTheDataOfPrograms) {
  const std::string folder = system_->special_folder(26);
  ASSERT_FALSE(folder.empty());
  EXPECT_EQ(system_->special_folder(-1), "");
  const std::string file = folder + system_->path_separator() + "velmar-test.txt";
  system_->write_text(file, "x");
  EXPECT_EQ(system_->read_text(file), "x");
  system_->delete_file(file);
}

TEST_F(Machine, CountsMilliseconds) {
  const std::int32_t start = system_->tick_count();
  const auto clock = std::chrono::steady_clock::now();
  while (std::chrono::steady_clock::now() - clock < std::chrono::milliseconds(60)) {
    system_->process_events();
  }
  const std::int64_t passed = std::int64_t{system_->tick_count()} - start;
  EXPECT_GE(passed, 40);
  EXPECT_LT(passed, 10'000);
}

TEST_F(Machine, TurnsWhatTheCodePageDoesNotHoldIntoQuestionMarks) {
  EXPECT_EQ(system_->through_ansi(u'a'), u'a');
  EXPECT_EQ(system_->through_ansi(u'\u00e9'), u'\u00e9');
  EXPECT_EQ(system_->through_ansi(u'\u20ac'), u'\u20ac');
  EXPECT_EQ(system_->through_ansi(u'\u0100'), u'?');  // not an A without its accent
  EXPECT_EQ(system_->through_ansi(u'\u6f22'), u'?');
}

}  // namespace
}  // namespace velmar::system
