#include "cli/saving.h"

#include "cli/console.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

/// Where a drawing is to be saved; empty: nowhere.
std::string target_of(const std::string& file, bool is_active, bool is_changed,
                      const SavingOptions& options) {
  if (is_active && !options.output.empty()) return options.output;
  return options.in_place && is_changed ? file : std::string();
}

void save_to(embedded::DocumentState& document, const std::string& target, CallRecord& record) {
  try {
    const bool in_place = record.drawings.back().drawing == target;
    if (in_place && document.read_only) {
      throw drawing::Error(target + ": is write-protected; give --output to save elsewhere");
    }
    document.drawing.save(drawing::utf8_path(target));
    record.drawings.back().saved_to = target;
  } catch (const drawing::Error& error) {
    if (record.drawing_failure) complain(*record.drawing_failure);
    record.drawing_failure = error.what();
  }
}

void tell_unsaved(const std::string& file, const SavingOptions& options, bool method_failed) {
  std::string_view why = ": give --save or --output to save it";
  if (method_failed) why = ", since the method failed";
  if (options.dry_run) why = " (dry run)";
  complain(file + " was changed but is not saved" + std::string(why));
}

}  // namespace

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
    record.drawings.push_back({file, std::move(changes), {}});
    if (target.empty()) {
      tell_unsaved(file, options, record.failure.has_value());
    } else {
      save_to(*document, target, record);
    }
  }
}

}  // namespace velmar::cli
