#include "cli/script_lines.h"

#include <filesystem>
#include <fstream>
#include <iostream>

#include "drawing/error.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

bool is_comment(const std::string& line) {
  const std::size_t first = line.find_first_not_of(" \t");
  return first != line.npos && line[first] == ';';
}

bool is_blank(const std::string& line) { return line.find_first_not_of(" \t") == line.npos; }

/// Backslashes before what would else be a comment: one of them says that it is none.
bool is_escaped_comment(const std::string& line) {
  const std::size_t end = line.find_first_not_of('\\');
  return end != line.npos && end > 0 && is_comment(line.substr(end));
}

std::unique_ptr<std::istream> opened(const std::string& name) {
  const std::filesystem::path path = drawing::utf8_path(name);
  auto file = std::make_unique<std::ifstream>(path);
  if (!*file || std::filesystem::is_directory(path)) {
    throw drawing::Error(name + ": the script cannot be read");
  }
  return file;
}

}  // namespace

ScriptLines::ScriptLines(const std::string& file)
    : name_(file), file_(opened(file)), input_(*file_) {}

ScriptLines::ScriptLines() : name_("standard input"), input_(std::cin) {}

std::optional<std::string> ScriptLines::next() {
  for (std::string line; std::getline(input_, line);) {
    ++read_;
    if (line.ends_with('\r')) line.pop_back();
    if (is_comment(line)) continue;
    if (is_escaped_comment(line)) line.erase(0, 1);
    return line;
  }
  if (!input_.eof()) throw drawing::Error(name_ + ": the script cannot be read");
  return std::nullopt;
}

std::optional<std::string> ScriptLines::command() {
  std::optional<std::string> line = next();
  while (line && is_blank(*line)) line = next();
  command_ = read_;
  return line;
}

std::optional<std::string> ScriptLines::answer(const std::string&,
                                               const std::vector<std::string>&) {
  std::optional<std::string> line = next();
  why_cancelled_ = line ? "" : "the script has no more lines";
  if (line == cancel_mark) line.reset();
  return line;
}

std::string ScriptLines::where() const { return name_ + ", line " + std::to_string(command_); }

std::string script_line(const std::optional<std::string>& answer) {
  if (!answer) return std::string(cancel_mark);
  const bool reads_otherwise = is_comment(*answer) || is_escaped_comment(*answer);
  return (reads_otherwise ? "\\" : "") + *answer;
}

}  // namespace velmar::cli
