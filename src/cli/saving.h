#pragma once

#include <span>
#include <string>

#include "cli/call_record.h"
#include "cli/run.h"

namespace CLI {
class App;
}

namespace velmar::cli {

struct SavingOptions {
  bool in_place = false;
  std::string output;  // for the active drawing; empty: none
  bool dry_run = false;
  bool backup = false;  // keep what was there, with ".bak" behind its name
  std::string journal;  // note every save there; empty: nowhere
};

void add_saving_options(CLI::App& command, SavingOptions& options);

/// Fails with UsageError for a name that does not end in .dxf.
void require_dxf_name(const std::string& file);

/// Fails with UsageError where there is nothing to save, or no such format.
void check_saving(const SavingOptions& options, std::span<const std::string> drawings);

/// Notes in `record` what changed, and saves as the options say. After a failed method nothing is
/// saved. A change that is not saved is told on standard error; a drawing that cannot be saved
/// becomes the record's drawing_failure, and the others are saved nevertheless.
void save(const Run& run, const SavingOptions& options, CallRecord& record);

}  // namespace velmar::cli
