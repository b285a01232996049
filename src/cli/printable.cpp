#include "cli/printable.h"

#include <cstdio>

#include "drawing/code_page.h"

namespace velmar::cli {
namespace {

bool is_control(char32_t c) { return c < 0x20 || (c >= 0x7F && c < 0xA0); }

bool is_direction_mark(char32_t c) {
  return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

bool is_line_separator(char32_t c) { return c == 0x2028 || c == 0x2029; }

/// A byte that is no UTF-8, as take_character gives it: some terminals obey it as a control.
bool is_stray_byte(char32_t c, std::size_t size) { return size == 1 && c >= 0x80; }

std::string escape(char32_t c) {
  char text[8];
  const auto value = static_cast<unsigned>(c);
  std::snprintf(text, sizeof text, value < 0x100 ? "\\x%02X" : "\\u%04X", value & 0xFFFF);
  return text;
}

std::string escaped(std::string_view text, bool keeps_lines) {
  std::string result;
  result.reserve(text.size());
  for (std::string_view rest = text; !rest.empty();) {
    const std::string_view before = rest;
    const char32_t c = drawing::take_character(rest);
    const std::size_t size = before.size() - rest.size();
    const bool stays = keeps_lines && (c == '\n' || c == '\t');
    if (is_stray_byte(c, size)) {
      result += escape(c & 0xFF);
    } else if ((is_control(c) && !stays) || is_direction_mark(c) || is_line_separator(c)) {
      result += escape(c);
    } else {
      result += before.substr(0, size);
    }
  }
  return result;
}

}  // namespace

std::string printable(std::string_view text) { return escaped(text, false); }

std::string printable_lines(std::string_view text) { return escaped(text, true); }

}  // namespace velmar::cli
