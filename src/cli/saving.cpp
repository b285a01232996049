#include "cli/saving.h"

#include <CLI/CLI.hpp>
#include <filesystem>

#include "cli/console.h"
#include "cli/drawing_files.h"
#include "cli/printable.h"
#include "cli/usage_error.h"
#include "drawing/utf8_path.h"
#include "embedded/document_saving.h"

namespace velmar::cli {
namespace {

/// Where a drawing is to be saved; empty: nowhere.
std::string target_of(const std::string& file, bool is_active, bool is_changed,
                      const SavingOptions& options) {
  if (is_active && !options.output.empty()) return options.output;
  return options.in_place && is_changed ? file : std::string();
}

/// The content that a save is about to replace, under the same name with ".bak" behind it.
void keep_backup(const std::string& target) {
  const std::filesystem::path from = drawing::utf8_path(target);
  std::error_code error;
  if (!std::filesystem::exists(from, error)) return;
  std::filesystem::copy_file(from, drawing::utf8_path(target + ".bak"),
                             std::filesystem::copy_options::overwrite_existing, error);
  if (error) {
    throw drawing::Error(target + ".bak: cannot be written: " + error.message() +
                         "; nothing was saved");
  }
}

void save_to(embedded::DocumentState& document, const std::string& target, bool backup,
             CallRecord& record) {
  try {
    const bool in_place = record.drawings.back().drawing == target;
    if (in_place && document.read_only) {
      throw drawing::Error(target + ": is write-protected; give --output to save elsewhere");
    }
    if (backup) keep_backup(target);
    embedded::save_document(document, drawing::utf8_path(target));
    record.drawings.back().saved_to = target;
  } catch (const drawing::Error& error) {
    if (record.drawing_failure) complain(printable(*record.drawing_failure));
    record.drawing_failure = error.what();
  }
}

void tell_unsaved(const std::string& file, const SavingOptions& options, bool method_failed) {
  std::string_view why = ": give --save or --output to save it";
  if (method_failed) why = ", since the method failed";
  if (options.dry_run) why = " (dry run)";
  complain(printable(file) + " was changed but is not saved" + std::string(why));
}

}  // namespace

void add_saving_options(CLI::App& command, SavingOptions& options) {
  command.add_flag("--save", options.in_place, "Save changed drawings in place");
  command.add_option("-o,--output", options.output, "Save the active drawing under another name");
  command.add_flag("--dry-run", options.dry_run, "Run and report, but save nothing");
  command.add_flag("--backup", options.backup,
                   "Keep what a save replaces, with .bak behind its name");
  command.add_option("--journal", options.journal,
                     "Note in this file what each save replaces, for 'velmar undo'");
}

void require_dxf_name(const std::string& file) {
  if (is_dxf(drawing::utf8_path(file))) return;
  throw UsageError(file + ": only DXF can be written: the name must end in .dxf");
}

void check_saving(const SavingOptions& options, std::span<const std::string> drawings) {
  if (drawings.empty() && (options.in_place || !options.output.empty())) {
    throw UsageError("there is no drawing to save: give one with --drawing");
  }
  if (!options.output.empty()) require_dxf_name(options.output);
}

void save(const Run& run, const SavingOptions& options, CallRecord& record) {
  const bool may_save = !options.dry_run && !record.failure;
  const embedded::DocumentPointer active = run.active();
  for (const embedded::DocumentPointer& document : run.documents()) {
    drawing::Changes changes = document->drawing.changes();
    const bool is_changed = !changes.empty();
    const std::string file = run.name_of(*document);
    std::string target;
    if (may_save) target = target_of(file, document == active, is_changed, options);
    if (!is_changed && target.empty()) continue;
    // In a dry run its changes are still there after the method has saved it.
    std::erase_if(record.drawings, [&](const DrawingChanges& told) {
      return told.drawing == file && told.saved_to.empty();
    });
    record.drawings.push_back({file, std::move(changes)});
    if (target.empty()) {
      tell_unsaved(file, options, record.failure.has_value());
    } else {
      save_to(*document, target, options.backup, record);
    }
  }
}

}  // namespace velmar::cli
