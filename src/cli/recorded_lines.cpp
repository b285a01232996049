#include "cli/recorded_lines.h"

#include <filesystem>
#include <utility>

#include "cli/script_lines.h"
#include "drawing/error.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {

std::optional<std::string> RecordedLines::command() {
  std::optional<std::string> line = lines_.command();
  latest_.clear();
  if (line) latest_.push_back(*line);
  return line;
}

std::optional<std::string> RecordedLines::answer(const std::string& prompt,
                                                 const std::vector<std::string>& offered) {
  std::optional<std::string> line = lines_.answer(prompt, offered);
  latest_.push_back(script_line(line));
  return line;
}

void RecordedLines::start(const std::string& file) {
  const std::filesystem::path path = drawing::utf8_path(file);
  if (std::filesystem::exists(path)) {
    throw drawing::Error(file + ": is there already; name a new file");
  }
  script_.open(path, std::ios::binary);
  if (!script_) throw drawing::Error(file + ": cannot be written");
  file_ = file;
  failed_ = 0;
}

std::string RecordedLines::stop() {
  script_.close();
  return std::exchange(file_, {});
}

void RecordedLines::write(const std::string& line) {
  if (!is_recording()) return;
  script_ << line << '\n' << std::flush;
  if (!script_) throw drawing::Error(file_ + ": cannot be written; the recording is cut short");
}

void RecordedLines::take_back() { latest_.pop_back(); }

void RecordedLines::keep(bool done) {
  if (!done) ++failed_;
  for (const std::string& line : latest_) write(line);
  latest_.clear();
}

}  // namespace velmar::cli
