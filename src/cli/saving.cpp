#include "cli/saving.h"

#include "cli/console.h"

namespace velmar::cli {
namespace {

/// Where a drawing is to be saved; empty: nowhere.
std::string target_of(const embedded::DocumentState& document, bool is_active, bool is_changed,
                      const SavingOptions& options) {
  if (is_active && !options.output.empty()) return options.output;
  return options.in_place && is_changed ? document.drawing.path().string() : std::string();
}

void save_to(embedded::DocumentState& document, const std::string& target, CallRecord& record) {
  try {
    document.drawing.save(target);
    record.drawings.back().saved_to = target;
  } catch (const drawing::Error& error) {
    if (record.drawing_failure) complain(*record.drawing_failure);
    record.drawing_failure = error.what();
  }
}

void tell_unsaved(const std::string& file, const SavingOptions& options, const CallRecord& record) {
  std::string_view why = ": give --save or --output to save it";
  if (record.failure) why = ", since the method failed";
  if (options.dry_run) why = " (dry run)";
  complain(file + " was changed but is not saved" + std::string(why));
}

}  // namespace

void save(Session& session, const SavingOptions& options, CallRecord& record) {
  const bool may_save = !options.dry_run && !record.failure;
  const embedded::DocumentPointer active = session.active();
  for (const embedded::DocumentPointer& document : session.documents()) {
    drawing::Changes changes = document->drawing.changes();
    const bool is_changed = !changes.empty();
    const std::string target =
        may_save ? target_of(*document, document == active, is_changed, options) : std::string();
    if (!is_changed && target.empty()) continue;
    const std::string file = document->drawing.path().string();
    record.drawings.push_back({file, std::move(changes), {}});
    if (target.empty()) {
      tell_unsaved(file, options, record);
    } else {
      save_to(*document, target, record);
    }
  }
}

}  // namespace velmar::cli
