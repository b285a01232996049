#include "cli/completion.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "basic/letter_case.h"
#include "basic/strings.h"
#include "component/method_table.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

namespace fs = std::filesystem;

bool begins(std::string_view word, std::string_view typed) {
  return basic::lower(word).starts_with(basic::lower(typed));
}

/// Those that begin as typed, from a place of the line on, quoted where they have blanks.
Completions matching(std::string_view typed, std::size_t begin,
                     const std::vector<std::string>& words) {
  Completions found{begin};
  for (const std::string& word : words) {
    if (!begins(word, typed)) continue;
    const bool is_quoted = word.find(' ') != word.npos;
    found.words.push_back(is_quoted ? "\"" + word + "\"" : word);
  }
  std::sort(found.words.begin(), found.words.end());
  return found;
}

std::vector<std::string> files_beginning(std::string_view typed) {
  const fs::path given = drawing::utf8_path(typed);
  const fs::path folder = given.has_parent_path() ? given.parent_path() : fs::path(".");
  std::vector<std::string> files;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
    const fs::path path =
        given.has_parent_path() ? folder / entry.path().filename() : entry.path().filename();
    const bool is_hidden = path.filename().string().starts_with('.');
    if (!is_hidden) files.push_back(path.string() + (entry.is_directory(error) ? "/" : ""));
  }
  return files;
}

std::vector<std::string> method_names() {
  std::vector<std::string> names;
  for (const Method& method : methods()) names.emplace_back(method.name);
  return names;
}

/// What can be the argument number `number` of a command.
std::vector<std::string> arguments_of(std::string_view command, std::size_t number,
                                      std::string_view typed, const Run& run) {
  constexpr auto with_files = std::to_array<std::string_view>({"OPEN", "SAVEAS", "RECORD"});
  const auto is_it = [&](std::string_view name) {
    return basic::equal_ignoring_case(name, command);
  };
  if (std::ranges::any_of(with_files, is_it)) return files_beginning(typed);
  if (is_it("HELP")) return method_names();
  const Method* const method = find_method(command);
  if (method == nullptr || number >= method->parameters().size()) return {};
  const bool is_layer = basic::contains_ignoring_case(method->parameters()[number].name, "layer");
  return is_layer ? layer_names(run) : std::vector<std::string>();
}

}  // namespace

Completions beginning(std::string_view line, const std::vector<std::string>& words) {
  Completions found{0};
  for (const std::string& word : words) {
    if (begins(word, line)) found.words.push_back(word);
  }
  return found;
}

std::vector<std::string> layer_names(const Run& run) {
  std::vector<std::string> names;
  const embedded::DocumentPointer document = run.active();
  if (!document) return names;
  for (const drawing::Layer& layer : document->drawing.layers()) {
    if (document->drawing.find_layer(layer.name)) names.push_back(layer.name);
  }
  return names;
}

Completions complete_command(std::string_view line, const std::vector<std::string>& commands,
                             const Run& run) {
  const std::size_t first = std::min(line.find_first_not_of(' '), line.size());
  const std::size_t end = line.find(' ', first);
  if (end == line.npos) {
    std::vector<std::string> names = method_names();
    names.insert(names.end(), commands.begin(), commands.end());
    return matching(line.substr(first), first, names);
  }
  // A word behind an open quote goes back to that; other blanks part words.
  const auto quotes = std::count(line.begin(), line.end(), '"');
  const bool in_quotes = quotes % 2 != 0;
  const std::size_t begin = in_quotes ? line.rfind('"') : line.rfind(' ') + 1;
  const std::string_view typed = line.substr(begin + (in_quotes ? 1 : 0));
  const std::string_view before = line.substr(0, begin);
  std::size_t words = 0;
  for (std::size_t i = end; i < before.size(); ++i) {
    const bool begins_word = before[i] != ' ' && before[i - 1] == ' ';
    words += begins_word ? 1 : 0;
  }
  const std::string_view command = line.substr(first, end - first);
  return matching(typed, begin, arguments_of(command, words, typed, run));
}

}  // namespace velmar::cli
