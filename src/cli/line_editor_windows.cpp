#include <windows.h>

#include <array>

#include "basic/utf16.h"
#include "cli/console.h"
#include "cli/interrupt.h"
#include "cli/line_editor.h"

namespace velmar::cli {

/// The console itself edits lines and remembers them.
struct LineEditor::Terminal {};

LineEditor::LineEditor() = default;
LineEditor::~LineEditor() = default;

bool LineEditor::is_possible() {
  DWORD ignored = 0;
  return ::GetConsoleMode(::GetStdHandle(STD_INPUT_HANDLE), &ignored) != 0 &&
         ::GetConsoleMode(::GetStdHandle(STD_OUTPUT_HANDLE), &ignored) != 0;
}

Typed LineEditor::read(const std::string& prompt, const Complete&) {
  print(prompt);
  std::array<char16_t, 4096> typed{};
  DWORD count = 0;
  const bool done = ::ReadConsoleW(::GetStdHandle(STD_INPUT_HANDLE), typed.data(),
                                   static_cast<DWORD>(typed.size()), &count, nullptr) != 0;
  if (count == 0) {
    ::Sleep(20);  // Ctrl-C ends the reading first and is told of by another thread
    if (was_interrupted()) {
      forget_interrupt();
      print("*Cancel*\n");
      return {TypedEnd::cancelled};
    }
    return {done ? TypedEnd::ended : TypedEnd::gone};
  }
  std::string line = basic::to_utf8(std::u16string_view(typed.data(), count));
  while (line.ends_with('\n') || line.ends_with('\r')) line.pop_back();
  constexpr std::string_view control_z = "\x1A", escape = "\x1B";
  if (line == control_z) return {TypedEnd::ended};
  if (line == escape) return {TypedEnd::cancelled};
  return {TypedEnd::entered, std::move(line)};
}

void LineEditor::remember(const std::string&) {}

}  // namespace velmar::cli
