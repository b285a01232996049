#include <CLI/CLI.hpp>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "basic/strings.h"
#include "cli/action.h"
#include "cli/batch_jobs.h"
#include "cli/console.h"
#include "cli/drawing_files.h"
#include "cli/interrupt.h"
#include "cli/method_lookup.h"
#include "cli/printable.h"
#include "cli/progress.h"
#include "cli/usage_error.h"
#include "drawing/error.h"
#include "drawing/journal.h"
#include "drawing/source.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

namespace fs = std::filesystem;

struct BatchOptions {
  std::string work;  // a method, or a script
  std::vector<std::string> paths, arguments, answers;
  std::string output, report, journal, shard;
  bool recursive = false, save = false, backup = false, dry_run = false, resume = false;
  unsigned jobs = 0;
  unsigned timeout = 0;
};

bool is_script(const std::string& work) {
  return basic::equal_ignoring_case(drawing::utf8_path(work).extension().string(), ".scr");
}

void check(const BatchOptions& options) {
  if (options.save && !options.output.empty()) {
    throw UsageError("--save and --output exclude each other");
  }
  if (options.backup && !options.save) throw UsageError("--backup needs --save");
  if (options.resume && options.report.empty()) throw UsageError("--resume needs --report");
  if (is_script(options.work)) {
    if (!options.arguments.empty() || !options.answers.empty()) {
      throw UsageError("a script has its arguments and answers in it");
    }
    if (!fs::is_regular_file(drawing::utf8_path(options.work)))
      throw UsageError(options.work + ": there is no such script");
  } else {
    require_method(options.work);
  }
}

/// "2/5" is the second of five parts: every fifth drawing from the second on.
std::vector<DrawingFile> shard_of(const std::vector<DrawingFile>& files, const std::string& shard) {
  if (shard.empty()) return files;
  unsigned part = 0, parts = 0;
  char slash = 0;
  std::istringstream in(shard);
  const bool read = static_cast<bool>(in >> part >> slash >> parts);
  if (!read || slash != '/' || part < 1 || part > parts ||
      in.peek() != std::istringstream::traits_type::eof()) {
    throw UsageError("--shard must be I/N with I from 1 to N, not \"" + shard + "\"");
  }
  std::vector<DrawingFile> chosen;
  for (std::size_t i = part - 1; i < files.size(); i += parts) chosen.push_back(files[i]);
  return chosen;
}

void refuse_same_targets(const BatchOptions& options, const std::vector<DrawingFile>& files) {
  if (options.output.empty()) return;
  std::set<fs::path> targets;
  for (const DrawingFile& file : files) {
    if (!targets.insert(file.below).second) {
      throw UsageError("two drawings would be saved as " +
                       (drawing::utf8_path(options.output) / file.below).string() +
                       ": name a folder above both instead");
    }
  }
}

/// Where the journals go. A batch that saves in place and reports keeps them in any case: they tell
/// which drawings were saved when it was stopped before it could report that. Fails with
/// UsageError where older ones would be mixed with new ones.
void prepare_journals(BatchOptions& options) {
  const bool is_own = options.journal.empty();
  if (is_own && (!options.save || options.report.empty())) return;
  if (is_own) options.journal = options.report + ".journals";
  const fs::path folder = drawing::utf8_path(options.journal);
  if (!options.resume && is_own) fs::remove_all(folder);
  fs::create_directories(folder);
  if (!options.resume && !fs::is_empty(folder)) {
    throw UsageError(options.journal + ": has journals of another batch in it");
  }
}

fs::path journal_for(const BatchOptions& options, const DrawingFile& file, std::size_t number) {
  const std::string name = std::to_string(number) + "-" + file.below.filename().string();
  return drawing::utf8_path(options.journal) / drawing::utf8_path(name + ".journal");
}

/// Whether the drawing is what a stopped batch left when it had saved it.
bool was_saved(const fs::path& journal, const std::string& file) {
  try {
    const std::vector<drawing::SaveEntry> entries = drawing::Journal::read(journal);
    const drawing::Source now = drawing::Source::map(drawing::utf8_path(file));
    return !entries.empty() && drawing::mark_of({now.bytes()}) == entries.back().after;
  } catch (const drawing::Error&) {
    return false;  // no journal, or none of a complete save
  }
}

/// A journal that was cut off when its job was killed, before it saved, can be neither read nor
/// continued: it is put aside.
void put_aside_cut(const fs::path& journal) {
  if (!fs::exists(journal)) return;
  try {
    drawing::Journal::read(journal);
  } catch (const drawing::Error&) {
    fs::path aside = journal;
    fs::rename(journal, aside += ".cut");
  }
}

BatchJob job_for(const BatchOptions& options, const DrawingFile& file, std::size_t number) {
  const std::string drawing = fs::absolute(file.path).lexically_normal().string();
  BatchJob job{drawing, {own_program()}, {}};
  std::vector<std::string>& words = job.command;
  const auto add = [&](std::initializer_list<std::string> more) {
    words.insert(words.end(), more);
  };
  add({is_script(options.work) ? "script" : "call", "--json", "-d", drawing});
  for (const std::string& answer : options.answers) add({"--answer=" + answer});
  if (options.dry_run) add({"--dry-run"});
  if (options.backup) add({"--backup"});
  if (!options.journal.empty()) {
    add({"--journal", journal_for(options, file, number).string()});
  }
  if (!options.output.empty() && !options.dry_run) {
    const fs::path target = drawing::utf8_path(options.output) / file.below;
    fs::create_directories(target.parent_path());
    job.saved_to = target.string();
    add({"-o", job.saved_to});
  } else if (options.save && !options.dry_run) {
    job.saved_to = drawing;
    add({"--save"});
  }
  add({"--", options.work});
  words.insert(words.end(), options.arguments.begin(), options.arguments.end());
  return job;
}

struct Totals {
  std::size_t done = 0, failed = 0, changed = 0, left = 0;
};

Totals run_jobs(std::deque<BatchJob> waiting, const BatchOptions& options, BatchReport& report) {
  Totals totals;
  Progress progress(waiting.size());
  const unsigned at_once = options.jobs > 0 ? options.jobs : processors();
  BatchJobs jobs(std::move(waiting), at_once, std::chrono::seconds(options.timeout),
                 interruption());
  note_interrupts();
  while (const std::optional<BatchRow> row = jobs.next()) {
    report.add(*row);
    const bool done = row->status == "done";
    ++(done ? totals.done : totals.failed);
    if (row->added + row->modified + row->erased > 0) ++totals.changed;
    if (!done) {
      progress.clear();
      complain(printable(row->drawing + ": " + row->status +
                         (row->error.empty() ? "" : ": " + row->error)));
    }
    progress.show(totals.done + totals.failed, totals.failed);
  }
  totals.left = jobs.left();
  return totals;
}

ExitCode run_batch(BatchOptions& options) {
  check(options);
  const std::vector<DrawingFile> files =
      shard_of(drawing_files(options.paths, options.recursive), options.shard);
  prepare_journals(options);
  BatchReport report;
  if (!options.report.empty())
    report = BatchReport(drawing::utf8_path(options.report), options.resume);

  refuse_same_targets(options, files);
  std::deque<BatchJob> jobs;
  std::size_t skipped = 0;
  for (std::size_t i = 0; i < files.size(); ++i) {
    BatchJob job = job_for(options, files[i], i + 1);
    if (report.is_done(job.drawing)) {
      ++skipped;
    } else if (options.resume && options.save &&
               was_saved(journal_for(options, files[i], i + 1), job.drawing)) {
      report.add(
          {job.drawing, job.drawing, "done", 0, 0, 0, 0, 0, "saved before the batch stopped"});
      ++skipped;
    } else {
      if (options.resume && !options.journal.empty()) {
        put_aside_cut(journal_for(options, files[i], i + 1));
      }
      jobs.push_back(std::move(job));
    }
  }
  const Totals totals = run_jobs(std::move(jobs), options, report);
  std::string summary = std::to_string(totals.done) + " done, " + std::to_string(totals.failed) +
                        " failed, " + std::to_string(totals.changed) + " changed";
  if (skipped > 0) summary += ", " + std::to_string(skipped) + " done before";
  if (totals.left > 0) summary += ", " + std::to_string(totals.left) + " not begun or cancelled";
  print(summary + "\n");
  return totals.failed + totals.left > 0 ? ExitCode::some_failed : ExitCode::done;
}

}  // namespace

void add_batch(CLI::App& program, Action& action) {
  const auto options = std::make_shared<BatchOptions>();
  CLI::App* const batch =
      program.add_subcommand("batch", "Run a method or a script on many drawings, in parallel");
  batch->add_option("METHOD|FILE.scr", options->work, "What to run on each drawing")->required();
  batch->add_option("PATH", options->paths, "Drawings, folders, patterns with * ? [ ]")->required();
  const auto add_list = [&](const char* name, std::vector<std::string>& list, const char* help) {
    batch->add_option(name, list, help)->allow_extra_args(false);
  };
  add_list("--arg", options->arguments, "The next argument of the method (repeatable)");
  add_list("-a,--answer", options->answers, "The next answer to a question (repeatable)");
  batch->add_flag("-r,--recursive", options->recursive, "Folders with their subfolders");
  batch->add_flag("--save", options->save, "Save changed drawings in place");
  batch->add_flag("--backup", options->backup, "Keep what a save replaces as FILE.bak");
  batch->add_option("--output", options->output, "Save below this folder, in the same tree");
  batch->add_flag("--dry-run", options->dry_run, "Run and report, but save nothing");
  batch->add_option("-j,--jobs", options->jobs, "Drawings at a time (all processors)");
  batch->add_option("--timeout", options->timeout, "Seconds a drawing may take (no limit)");
  batch->add_option("--report", options->report, "A row for each drawing: CSV for .csv, else JSON");
  batch->add_flag("--resume", options->resume, "Skip what the report says is done");
  batch->add_option("--journal", options->journal, "A folder for journals, one a drawing");
  batch->add_option("--shard", options->shard, "I/N: only the I-th of N parts of the drawings");
  batch->callback([options, &action] { action = [options] { return run_batch(*options); }; });
}

}  // namespace velmar::cli
