#include "cli/folder_watch.h"

#include <algorithm>
#include <random>

#include "basic/strings.h"
#include "cli/drawing_files.h"
#include "cli/interrupt.h"
#include "cli/printable.h"
#include "drawing/error.h"
#include "drawing/journal.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

namespace fs = std::filesystem;

fs::path own_journal() {
  return fs::temp_directory_path() /
         ("velmar-" + std::to_string(std::random_device{}()) + ".journal");
}

bool is_drawing(const std::string& file) {
  const fs::path path = drawing::utf8_path(file);
  return is_dxf(path) || basic::equal_ignoring_case(path.extension().string(), ".dwg");
}

}  // namespace

FolderWatch::FolderWatch(Run& run, const std::string& journal)
    : run_(run),
      journal_(journal.empty() ? own_journal() : drawing::utf8_path(journal)),
      is_own_(journal.empty()) {
  if (!is_own_ && fs::exists(journal_)) noted_before_ = drawing::Journal::read(journal_).size();
  run.watch({[this](const std::vector<std::string>& files) { listed(files); },
             [this](const fs::path&) { opening(); }});
}

FolderWatch::~FolderWatch() {
  run_.watch({});
  if (opened_ > 0) end_on_interrupt();
  std::error_code ignored;
  if (is_own_) fs::remove(journal_, ignored);
}

void FolderWatch::check() const {
  if (was_interrupted()) throw Cancelled();
}

void FolderWatch::listed(const std::vector<std::string>& files) {
  if (!progress_) progress_.emplace(0);
  progress_->expect(static_cast<std::size_t>(std::ranges::count_if(files, is_drawing)));
}

void FolderWatch::opening() {
  if (opened_ == 0) {
    note_first_interrupt();
    run_.keep_journal(journal_);
  }
  check();
  if (progress_) progress_->show(opened_);
  ++opened_;
}

std::string FolderWatch::take_back() {
  progress_.reset();
  std::string failed;
  if (fs::exists(journal_)) {
    const std::vector<drawing::SaveEntry> entries = drawing::Journal::read(journal_);
    for (std::size_t i = entries.size(); i-- > noted_before_;) {
      try {
        drawing::undo(entries[i]);
      } catch (const drawing::Error& error) {
        failed += "\nvelmar: " + printable(error.what());
      }
    }
  }
  return failed.empty() ? "cancelled; every file is as it was"
                        : "cancelled; these files could not be given back:" + failed;
}

}  // namespace velmar::cli
