#pragma once

#include <chrono>
#include <cstddef>
#include <string>

namespace velmar::cli {

/// A bar on standard error for work that takes over a second, where that is a terminal.
class Progress {
 public:
  explicit Progress(std::size_t all);
  ~Progress();  // takes the bar away
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// There is more to do than was known.
  void expect(std::size_t more) { all_ += more; }
  void show(std::size_t done);
  void show(std::size_t done, std::size_t failed);
  /// Takes the bar away until the next show(), so that a message can be written.
  void clear();

 private:
  void draw(std::size_t done, const std::string& rest);

  std::size_t all_;
  bool on_terminal_;
  bool shown_ = false;
  std::chrono::steady_clock::time_point began_ = std::chrono::steady_clock::now();
};

}  // namespace velmar::cli
