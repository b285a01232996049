#pragma once

#include <atomic>
#include <chrono>
#include <deque>
#include <filesystem>
#include <list>
#include <string>
#include <vector>

#include "cli/batch_report.h"
#include "cli/process.h"

namespace velmar::cli {

/// One drawing of a batch and the command that works on it.
struct BatchJob {
  std::string drawing;               // absolute path
  std::vector<std::string> command;  // this program with its arguments; writes JSON
  std::string saved_to;              // where it saves if it succeeds; empty: nowhere
};

/// Runs each job in a process of its own, so that a crash or a hang of one harms no other.
class BatchJobs {
 public:
  /// A job that takes longer than `limit` is killed; 0 is no limit. Once `stop` is set, no further
  /// job is begun or waited for.
  BatchJobs(std::deque<BatchJob> jobs, unsigned at_once, std::chrono::seconds limit,
            const std::atomic<bool>& stop);
  /// Kills what runs; their drawings are as they were or as their saves left them, never between.
  ~BatchJobs();

  /// Waits for the next job to end and tells what came of it; nothing when all have ended, or
  /// when stopped.
  std::optional<BatchRow> next();
  std::size_t left() const { return waiting_.size() + running_.size(); }

 private:
  using Clock = std::chrono::steady_clock;
  struct Running {
    BatchJob job;
    Clock::time_point began;
    std::filesystem::path output, errors;
    std::unique_ptr<Process> process;
    bool killed = false;
  };

  void fill_up();
  void wait() const;
  BatchRow row_of(const Running& running, int exit_code) const;

  std::deque<BatchJob> waiting_;
  std::list<Running> running_;
  unsigned at_once_;
  std::chrono::seconds limit_;
  const std::atomic<bool>& stop_;
  std::filesystem::path folder_;  // of the outputs
  std::size_t started_ = 0;
};

}  // namespace velmar::cli
