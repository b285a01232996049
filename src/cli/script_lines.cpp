#include "cli/script_lines.h"

#include <filesystem>
#include <fstream>

#include "drawing/error.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

bool is_comment(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t");
  return first != line.npos && line[first] == ';';
}

bool is_blank(const std::string& line) { return line.find_first_not_of(" \t") == line.npos; }

}  // namespace

ScriptLines::ScriptLines(const std::string& file) : file_(file) {
  const std::filesystem::path path = drawing::utf8_path(file);
  std::ifstream script(path);
  for (std::string line; std::getline(script, line);) {
    if (line.ends_with('\r')) line.pop_back();
    lines_.push_back(std::move(line));
  }
  if (!script.eof() || std::filesystem::is_directory(path)) {
    throw drawing::Error(file + ": the script cannot be read");
  }
}

std::optional<std::string> ScriptLines::next() {
  while (next_ < lines_.size()) {
    std::string& line = lines_[next_++];
    if (!is_comment(line)) return line;
  }
  return std::nullopt;
}

std::optional<std::string> ScriptLines::command() {
  std::optional<std::string> line = next();
  while (line && is_blank(*line)) line = next();
  command_ = next_;
  return line;
}

std::optional<std::string> ScriptLines::answer(const std::string&) {
  std::optional<std::string> line = next();
  why_cancelled_ = line ? "" : "the script has no more lines";
  if (line == "^C") line.reset();
  return line;
}

std::string ScriptLines::where() const { return file_ + ", line " + std::to_string(command_); }

}  // namespace velmar::cli
