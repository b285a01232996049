#include "cli/batch_jobs.h"

#include <random>
#include <sstream>

#include "cli/json.h"

namespace velmar::cli {
namespace {

namespace fs = std::filesystem;

fs::path new_folder() {
  fs::path folder;
  do {
    folder = fs::temp_directory_path() / ("velmar-batch-" + std::to_string(std::random_device{}()));
  } while (!fs::create_directory(folder));
  return folder;
}

std::string content(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::size_t count(const Json& change, const char* what) {
  return change.contains(what) && change[what].is_array() ? change[what].size() : 0;
}

/// Adds up what the JSON objects of a job's output, one a line, say of changes.
void add_changes(BatchRow& row, const std::string& output) {
  std::istringstream lines(output);
  for (std::string line; std::getline(lines, line);) {
    const Json object = Json::parse(line, nullptr, false);
    if (!object.is_object() || !object.contains("changes")) continue;
    for (const Json& change : object["changes"]) {
      row.added += count(change, "added");
      row.modified += count(change, "modified");
      row.erased += count(change, "erased");
    }
  }
}

std::string without_line_end(std::string text) {
  while (text.ends_with('\n') || text.ends_with('\r')) text.pop_back();
  return text;
}

}  // namespace

BatchJobs::BatchJobs(std::deque<BatchJob> jobs, unsigned at_once, std::chrono::seconds limit,
                     const std::atomic<bool>& stop)
    : waiting_(std::move(jobs)),
      at_once_(at_once),
      limit_(limit),
      stop_(stop),
      folder_(new_folder()) {}

BatchJobs::~BatchJobs() {
  running_.clear();
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void BatchJobs::fill_up() {
  while (running_.size() < at_once_ && !waiting_.empty()) {
    const fs::path output = folder_ / std::to_string(started_++);
    fs::path errors = output;
    errors += ".err";
    auto process = std::make_unique<Process>(waiting_.front().command, output, errors);
    running_.push_back(
        {std::move(waiting_.front()), Clock::now(), output, errors, std::move(process)});
    waiting_.pop_front();
  }
}

std::optional<BatchRow> BatchJobs::next() {
  while (!stop_) {
    fill_up();
    if (running_.empty()) return std::nullopt;
    for (auto job = running_.begin(); job != running_.end(); ++job) {
      if (const std::optional<int> exit_code = job->process->ended()) {
        BatchRow row = row_of(*job, *exit_code);
        fs::remove(job->output);
        fs::remove(job->errors);
        running_.erase(job);
        return row;
      }
      if (limit_.count() > 0 && !job->killed && Clock::now() - job->began > limit_) {
        job->killed = true;
        job->process->kill();
      }
    }
    wait();
  }
  return std::nullopt;
}

/// Until a job ends, or it is time to look at limits and whether to stop.
void BatchJobs::wait() const {
  constexpr std::chrono::milliseconds between_looks(50);
  std::vector<Process*> processes;
  for (const Running& job : running_) processes.push_back(job.process.get());
  Process::wait_for_any(processes, between_looks);
}

BatchRow BatchJobs::row_of(const Running& running, int exit_code) const {
  constexpr int crashed = 256;
  BatchRow row;
  row.drawing = running.job.drawing;
  row.exit_code = exit_code;
  row.seconds = std::chrono::duration<double>(Clock::now() - running.began).count();
  add_changes(row, content(running.output));
  row.error = without_line_end(content(running.errors));
  if (running.killed) {
    row.status = "timed out";
    row.error = "killed after " + std::to_string(limit_.count()) + " s";
  } else if (exit_code >= crashed) {
    row.status = "crashed";
  } else {
    row.status = exit_code == 0 ? "done" : "failed";
    if (exit_code == 0) row.saved_to = running.job.saved_to;
  }
  return row;
}

}  // namespace velmar::cli
