#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmar::cli {

/// A program that runs beside this one. What is still running at the end of its object is killed.
class Process {
 public:
  /// Standard output and standard error go to these files. Fails with drawing::Error where the
  /// program does not start.
  Process(const std::vector<std::string>& command, const std::filesystem::path& output,
          const std::filesystem::path& errors);
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process();

  /// How it ended: its exit code; 256 and more for a crash (256 + the signal, where the system has
  /// signals). Nothing as long as it runs.
  std::optional<int> ended();
  void kill();
  /// Returns when one of them has ended, a signal came, or that time has passed; perhaps earlier.
  static void wait_for_any(const std::vector<Process*>& running, std::chrono::milliseconds at_most);

 private:
  struct Handle;
  std::unique_ptr<Handle> handle_;
};

/// In a program that was started as a Process: from now on it is killed when that which started it
/// dies, however that happens, so that it does not save a drawing that nobody waits for. Nothing in
/// others, and on Windows.
void end_with_parent();

/// The file of the program that is running.
std::string own_program();

/// How many processors this program may use.
unsigned processors();

}  // namespace velmar::cli
