// A save whose system calls are refused, each once, or whose folder vanishes on the way.

#include <fcntl.h>
#include <sys/syscall.h>

#include <cstring>

#include "drawing/journal.h"
#include "saving.h"
#include "traced_process.h"

namespace velmar::drawing {
namespace {

enum Ending { saved, saved_at_the_second_try, old_file_lost, is_unclear, ended_otherwise };

/// What a disk without room and a quota that is used up refuse.
bool takes_room(const TracedProcess& process) {
  switch (process.call()) {
    case SYS_write:
    case SYS_writev:
    case SYS_fsync:
    case SYS_close:  // where the disk is behind a network
    case SYS_rename:
      return true;
    case SYS_openat:
      return process.argument(2) & O_CREAT;
    default:
      return false;
  }
}

/// Refuses the n-th such call; false where there are fewer.
bool refuse(TracedProcess& process, int n, int error) {
  for (; process.is_stopped(); process.go_on()) {
    if (!takes_room(process) || --n > 0) continue;
    process.refuse(error);
    return true;
  }
  return false;
}

class Refused : public Saving {
 protected:
  Refused() { fs::create_directory(elsewhere_); }
  ~Refused() override { fs::remove_all(elsewhere_); }

  void begin_anew() {
    fs::remove_all(folder_);
    fs::remove_all(elsewhere_);
    fs::create_directory(folder_);
    fs::create_directory(elsewhere_);
    put(path_, old_);
  }

  /// Opens the drawing, changes it, saves it and, where that is refused, once more under the second
  /// name. `check` looks at what a refusal has left.
  static Ending save_twice(const fs::path& path, const fs::path& second, const fs::path& journal,
                           const std::function<Ending(const Error&)>& check) {
    Drawing drawing = Drawing::open(path);
    if (!journal.empty()) drawing.keep_journal(std::make_shared<Journal>(journal));
    change(drawing, "two");
    TracedProcess::begin();
    try {
      drawing.save(path);
      return saved;
    } catch (const Error& error) {
      if (const Ending found = check(error); found != saved) return found;
      if (!drawing.is_changed()) return is_unclear;
      drawing.save(second);
      return saved_at_the_second_try;
    } catch (...) {
      return ended_otherwise;
    }
  }

  /// The old file and no other, a reason, and a journal that has nothing to take back.
  Ending check_old_file(const Error& error, const fs::path& journal, int refusal) const {
    if (get(path_) != old_ || files() != 1) return old_file_lost;
    const std::string_view text = error.what();
    const bool told = text.find(std::strerror(refusal)) != text.npos ||
                      (!journal.empty() && text.find("the journal cannot be") != text.npos);
    if (!told) return is_unclear;
    if (!fs::exists(journal)) return saved;
    for (const SaveEntry& entry : Journal::read(journal)) {
      if (undo(entry) != UndoOutcome::was_as_before) return is_unclear;
    }
    return saved;
  }

  /// How many calls were refused so that the save was.
  int refuse_each_once(int error, const fs::path& journal, const std::function<void()>& check) {
    int refused_saves = 0;
    bool was_refused = true;
    for (int n = 1; was_refused && !HasFailure(); ++n) {
      begin_anew();
      TracedProcess process([&] {
        return save_twice(path_, path_, journal,
                          [&](const Error& told) { return check_old_file(told, journal, error); });
      });
      was_refused = refuse(process, n, error);
      const int ending = process.run_to_end();
      EXPECT_TRUE(ending == saved || ending == saved_at_the_second_try)
          << "ending " << ending << " with call " << n << " refused";
      EXPECT_EQ(get(path_), new_);
      EXPECT_EQ(files(), 1u);
      check();
      if (ending == saved_at_the_second_try) ++refused_saves;
    }
    return refused_saves;
  }

  const fs::path elsewhere_ = folder_.string() + "-elsewhere";
  const std::string old_ = get(path_);
  const std::string new_ = [this] {
    Drawing drawing = Drawing::open(path_);
    change(drawing, "two");
    return drawing.bytes();
  }();
};

TEST_F(Refused, ByAFullDiskOrAQuotaASaveLeavesTheOldFileAndCanBeTriedAgain) {
  if (!TracedProcess::can_refuse) GTEST_SKIP() << "not on this processor";
  for (const int error : {EDQUOT, ENOSPC}) {
    // Making the file, writing it, flushing, closing and renaming it.
    EXPECT_EQ(refuse_each_once(error, {}, [] {}), 5);
  }
}

TEST_F(Refused, AJournalKeepsWholeEntries) {
  if (!TracedProcess::can_refuse) GTEST_SKIP() << "not on this processor";
  const fs::path journal = elsewhere_ / "journal";
  const auto check = [&] {
    const std::vector<SaveEntry> entries = Journal::read(journal);
    ASSERT_FALSE(entries.empty());
    EXPECT_EQ(undo(entries.back()), UndoOutcome::restored);
    EXPECT_EQ(get(path_), old_);
  };
  for (const int error : {EDQUOT, ENOSPC}) EXPECT_GE(refuse_each_once(error, journal, check), 9);
}

TEST_F(Refused, WithItsFolderGoneADrawingCanBeSavedElsewhere) {
  const fs::path second = elsewhere_ / "second.dxf";
  for (const bool from_within : {false, true}) {
    int not_saved = 0, was_saved = 0;
    for (int stop = 0; !HasFailure(); ++stop) {
      begin_anew();
      TracedProcess process([&] {
        if (from_within) fs::current_path(folder_);
        return save_twice(from_within ? path_.filename() : path_, second, elsewhere_ / "journal",
                          [](const Error&) { return saved; });
      });
      for (int passed = 0; passed < stop && process.is_stopped(); ++passed) process.go_on();
      const bool is_within = process.is_stopped();
      fs::remove_all(folder_);
      const int ending = process.run_to_end();
      EXPECT_TRUE(ending == saved || ending == saved_at_the_second_try)
          << "ending " << ending << " with the folder gone at stop " << stop;
      EXPECT_FALSE(fs::exists(folder_));
      EXPECT_EQ(fs::exists(second), ending != saved);
      EXPECT_TRUE(ending == saved || get(second) == new_);
      ++(ending == saved ? was_saved : not_saved);
      if (!is_within) break;
    }
    EXPECT_GT(not_saved, 20);
    EXPECT_GT(was_saved, 1);
  }
}

}  // namespace
}  // namespace velmar::drawing
