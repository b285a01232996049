#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::cli {

/// What could stand in place of a line's last word: where that begins, and whole words.
struct Completions {
  std::size_t begin = 0;
  std::vector<std::string> words = {};
};
using Complete = std::function<Completions(std::string_view line)>;

enum class TypedEnd {
  entered,
  cancelled,  // Escape or Ctrl-C
  ended,      // Ctrl-D on an empty line
  gone,       // the terminal is no more
};
struct Typed {
  TypedEnd end = TypedEnd::entered;
  std::string line = {};
};

/// Lines that a user types at the terminal, with the keys he knows from his shell where the system
/// has an editor for that. Tab completes.
class LineEditor {
 public:
  /// Knows the lines of earlier sessions, which are kept in the user's folder for such.
  LineEditor();
  ~LineEditor();
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;

  Typed read(const std::string& prompt, const Complete& complete);
  void remember(const std::string& line);

  /// Whether both standard input and output are a terminal.
  static bool is_possible();

 private:
  struct Terminal;
  std::unique_ptr<Terminal> terminal_;
};

}  // namespace velmar::cli
