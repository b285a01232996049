// A program that is killed anywhere in a save leaves the old file or the new one.

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

#include "drawing/journal.h"
#include "saving.h"
#include "traced_process.h"

namespace velmar::drawing {
namespace {

/// Runs the work in a process of its own, which is killed at its n-th stop; each system call has
/// two, before and after it takes effect. False where the work has fewer.
bool is_killed_at(int n, const std::function<void()>& work) {
  TracedProcess process([&] {
    TracedProcess::begin();
    work();
    return 0;
  });
  for (int stop = 0; stop < n && process.is_stopped(); ++stop) process.go_on();
  if (process.is_stopped()) return true;
  EXPECT_EQ(process.run_to_end(), 0);
  return false;
}

struct Crash : Saving {
  /// Kills `save` everywhere, each time with the file as it was at first; `check` looks at what is
  /// left. The whole save is the last time.
  void kill_everywhere(const std::function<void()>& save, const std::function<void()>& check) {
    const std::string old = get(path_);
    bool was_killed = true;
    for (int n = 1; was_killed && !HasFailure(); ++n) {
      fs::remove_all(folder_);
      fs::create_directory(folder_);
      put(path_, old);
      was_killed = is_killed_at(n, save);
      const bool is_old = get(path_) == old;
      EXPECT_TRUE(is_old || get(path_) == new_content) << "stop " << n;
      (is_old ? left_old : left_new) += 1;
      check();
    }
    EXPECT_GT(left_old, 10);
    EXPECT_GT(left_new, 1);
  }

  std::string new_content = [this] {
    Drawing drawing = Drawing::open(path_);
    change(drawing, "two");
    return drawing.bytes();
  }();
  int left_old = 0, left_new = 0;
};

TEST_F(Crash, LeavesTheOldFileOrTheNewOne) {
  kill_everywhere(
      [&] {
        Drawing drawing = Drawing::open(path_);
        change(drawing, "two");
        drawing.save(path_);
      },
      [&] {
        EXPECT_LE(files(), 2u) << "at most the unfinished file is left";
        Drawing drawing = Drawing::open(path_);
        change(drawing, "three");
        drawing.save(path_);
      });
}

TEST_F(Crash, LeavesAJournalThatTakesTheSaveBack) {
  const fs::path file = folder_ / "journal";
  const std::string old = get(path_);
  kill_everywhere(
      [&] {
        Drawing drawing = Drawing::open(path_);
        drawing.keep_journal(std::make_shared<Journal>(file));
        change(drawing, "two");
        drawing.save(path_);
      },
      [&] {
        if (get(path_) == old) return;
        const std::vector<SaveEntry> entries = Journal::read(file);
        ASSERT_EQ(entries.size(), 1u);
        EXPECT_EQ(undo(entries[0]), UndoOutcome::restored);
        EXPECT_EQ(get(path_), old);
      });
}

/// Runs the work in a process of its own; its result is whether that ended well.
pid_t begin(const std::function<bool()>& work) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(work() ? 0 : 1);
  return child;
}

bool went_well(pid_t child) {
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(Crash, OfTwoProgramsThatSaveAtOnceOneIsRefused) {
  const std::string old = get(path_);
  for (int round = 0; round < 20; ++round) {
    put(path_, old);
    int opened[2], gate[2];
    ASSERT_EQ(::pipe(opened) + ::pipe(gate), 0);
    const auto save = [&](const std::string& text) {
      Drawing drawing = Drawing::open(path_);
      change(drawing, text);
      char byte = 0;
      ::close(gate[1]);
      if (::write(opened[1], &byte, 1) != 1) return false;
      if (::read(gate[0], &byte, 1) != 0) return false;  // ends when nobody holds the gate
      try {
        drawing.save(path_);
        return true;
      } catch (const Error&) {
        return false;
      }
    };
    const pid_t mine = begin([&] { return save("mine " + std::string(20'000, 'a')); });
    const pid_t yours = begin([&] { return save("yours " + std::string(20'000, 'b')); });
    char bytes[2];
    for (char& byte : bytes) ASSERT_EQ(::read(opened[0], &byte, 1), 1);
    for (const int end : {opened[0], opened[1], gate[0], gate[1]}) ::close(end);
    const bool mine_saved = went_well(mine), yours_saved = went_well(yours);
    EXPECT_NE(mine_saved, yours_saved);
    Drawing drawing = Drawing::open(path_);
    const std::string text = std::get<Text>(drawing.read(drawing.find(0x2F)).body).text;
    EXPECT_TRUE(text.starts_with(mine_saved ? "mine" : "yours"));
    EXPECT_EQ(files(), 1u);
  }
}

}  // namespace
}  // namespace velmar::drawing
