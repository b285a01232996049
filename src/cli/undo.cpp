#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

#include "cli/action.h"
#include "cli/console.h"
#include "cli/printable.h"
#include "drawing/error.h"
#include "drawing/journal.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

struct UndoOptions {
  std::string journal;
  std::vector<std::string> files;  // empty: all
};

std::string_view outcome_words(drawing::UndoOutcome outcome) {
  switch (outcome) {
    case drawing::UndoOutcome::restored:
      return "as it was before";
    case drawing::UndoOutcome::removed:
      return "removed, it was new";
    case drawing::UndoOutcome::was_as_before:
      break;
  }
  return "already as it was before";
}

bool is_wanted(const drawing::SaveEntry& entry, const std::vector<std::string>& files) {
  if (files.empty()) return true;
  for (const std::string& file : files) {
    if (std::filesystem::absolute(drawing::utf8_path(file)).lexically_normal() ==
        entry.file.lexically_normal()) {
      return true;
    }
  }
  return false;
}

ExitCode undo_all(const UndoOptions& options) {
  ExitCode code = ExitCode::done;
  const std::vector<drawing::SaveEntry> entries =
      drawing::Journal::read(drawing::utf8_path(options.journal));
  for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
    if (!is_wanted(*entry, options.files)) continue;
    try {
      print(printable(entry->file.string()) + ": " + std::string(outcome_words(undo(*entry))) +
            "\n");
    } catch (const drawing::Error& error) {
      complain(printable(error.what()));
      code = ExitCode::drawing_failed;
    }
  }
  return code;
}

}  // namespace

void add_undo(CLI::App& program, Action& action) {
  const auto options = std::make_shared<UndoOptions>();
  CLI::App* const undo = program.add_subcommand(
      "undo", "Give drawings back the bytes they had before the saves of a journal");
  undo->add_option("JOURNAL", options->journal, "What --journal wrote")->required();
  undo->add_option("DRAWING", options->files, "Only these drawings");
  undo->callback([options, &action] { action = [options] { return undo_all(*options); }; });
}

}  // namespace velmar::cli
