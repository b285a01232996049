#include "drawing/journal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "drawing/drawing.h"
#include "drawing/error.h"
#include "sample_text.h"

namespace velmar::drawing {
namespace {

namespace fs = std::filesystem;

class JournalTest : public testing::Test {
  fs::path folder_ = fs::temp_directory_path() /
                     ("velmar-journal-" +
                      std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));

 protected:
  JournalTest() {
    fs::remove_all(folder_);
    fs::create_directory(folder_);
    fs::copy_file(fs::path(VELMAR_CORPUS) / "dxf-parser" / "api-cw750-details.dxf", drawing);
    before = content(drawing);
  }
  ~JournalTest() override { fs::remove_all(folder_); }

  static std::string content(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  Drawing open() const {
    Drawing opened = Drawing::open(drawing);
    opened.keep_journal(std::make_shared<Journal>(journal));
    return opened;
  }
  static void edit(Drawing& edited, std::size_t entity) {
    edited.erase(edited.entities(SpaceId::model).at(entity));
  }

  fs::path drawing = folder_ / "plan.dxf", journal = folder_ / "journal";
  std::string before;
};

TEST_F(JournalTest, GivesBackTheBytesAndIsSmall) {
  Drawing edited = open();
  edit(edited, 0);
  edited.save(drawing);
  edit(edited, 5);
  edited.save(drawing);
  EXPECT_LT(content(journal).size(), before.size() / 10);

  const std::vector<SaveEntry> entries = Journal::read(journal);
  ASSERT_EQ(entries.size(), 2u);
  EXPECT_EQ(undo(entries[1]), UndoOutcome::restored);
  EXPECT_EQ(content(drawing), before);
  EXPECT_EQ(undo(entries[0]), UndoOutcome::was_as_before);
}

TEST_F(JournalTest, KnowsNewAndReplacedFiles) {
  const fs::path other = drawing.parent_path() / "other.dxf";
  Drawing edited = open();
  edit(edited, 0);
  edited.save(other);
  EXPECT_EQ(undo(Journal::read(journal).back()), UndoOutcome::removed);
  EXPECT_FALSE(fs::exists(other));

  std::ofstream(other) << "something else";
  Drawing again = open();
  again.save(other);
  EXPECT_EQ(undo(Journal::read(journal).back()), UndoOutcome::restored);
  EXPECT_EQ(content(other), "something else");
}

TEST_F(JournalTest, RefusesAFileThatIsNotTheOneItLeft) {
  Drawing edited = open();
  edit(edited, 0);
  edited.save(drawing);
  std::ofstream(drawing, std::ios::app) << "\n";
  const std::string changed = content(drawing);
  EXPECT_THROW(undo(Journal::read(journal).back()), Error);
  EXPECT_EQ(content(drawing), changed);
}

TEST_F(JournalTest, ThatIsCutOrForgedFails) {
  Drawing edited = open();
  edit(edited, 0);
  edited.save(drawing);
  const std::string whole = content(journal);
  // Closely at both ends.
  const auto step = [&](std::size_t size) { return 1 + std::min(size, whole.size() - size) / 32; };
  for (std::size_t size = 1; size + 1 < whole.size(); size += step(size)) {
    std::ofstream(journal, std::ios::binary | std::ios::trunc) << whole.substr(0, size);
    EXPECT_THROW(Journal::read(journal), Error) << size;
  }
  const std::string kept = content(drawing);
  SaveEntry forged = edited.bytes().empty() ? SaveEntry{} : [&] {
    std::ofstream(journal, std::ios::binary | std::ios::trunc) << whole;
    return Journal::read(journal).front();
  }();
  forged.old.front().length = ~std::uint64_t{0};
  EXPECT_THROW(undo(forged), Error);
  EXPECT_EQ(content(drawing), kept);
}

}  // namespace
}  // namespace velmar::drawing
