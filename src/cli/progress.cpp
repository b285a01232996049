#include "cli/progress.h"

#include <algorithm>
#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace velmar::cli {
namespace {

bool stderr_is_terminal() {
#ifdef _WIN32
  return _isatty(_fileno(stderr)) != 0;
#else
  return ::isatty(STDERR_FILENO) != 0;
#endif
}

}  // namespace

Progress::Progress(std::size_t all) : all_(all), on_terminal_(stderr_is_terminal()) {}

Progress::~Progress() { clear(); }

void Progress::show(std::size_t done) { draw(done, ""); }

void Progress::show(std::size_t done, std::size_t failed) {
  draw(done, ", " + std::to_string(failed) + " failed");
}

void Progress::draw(std::size_t done, const std::string& rest) {
  const auto elapsed = std::chrono::steady_clock::now() - began_;
  if (!on_terminal_ || elapsed < std::chrono::seconds(1) || all_ == 0) return;
  constexpr std::size_t width = 30;
  const std::size_t filled = width * std::min(done, all_) / all_;
  const std::string bar = std::string(filled, '#') + std::string(width - filled, '.');
  std::fprintf(stderr, "\r[%s] %zu of %zu%s ", bar.c_str(), done, all_, rest.c_str());
  std::fflush(stderr);
  shown_ = true;
}

void Progress::clear() {
  if (!shown_) return;
  std::fprintf(stderr, "\r%70s\r", "");
  std::fflush(stderr);
  shown_ = false;
}

}  // namespace velmar::cli
