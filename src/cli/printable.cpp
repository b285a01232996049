#include "cli/printable.h"

#include <cstdio>

namespace velmar::cli {
namespace {

struct Sequence {
  std::size_t length = 1;
  unsigned character = 0;
};

/// The UTF-8 sequence at a place, as far as it can hold what must not be shown: at most three
/// bytes.
Sequence sequence_at(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) {
    return at + i < text.size() ? static_cast<unsigned char>(text[at + i]) : 0u;
  };
  const auto follows = [&](std::size_t i) { return (byte(i) & 0xC0) == 0x80; };
  const unsigned first = byte(0);
  if ((first & 0xE0) == 0xC0 && follows(1)) return {2, (first & 0x1F) << 6 | (byte(1) & 0x3F)};
  if ((first & 0xF0) == 0xE0 && follows(1) && follows(2)) {
    return {3, (first & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F)};
  }
  return {1, first < 0x80 ? first : ' '};
}

bool is_direction_mark(unsigned c) {
  return c == 0x061C || c == 0x200E || c == 0x200F || (c >= 0x202A && c <= 0x202E) ||
         (c >= 0x2066 && c <= 0x2069);
}

std::string escaped(std::string_view text, bool keeps_lines) {
  std::string result;
  for (std::size_t at = 0; at < text.size();) {
    const auto [length, c] = sequence_at(text, at);
    const bool is_control = c < 0x20 || (c >= 0x7F && c < 0xA0);
    const bool stays = keeps_lines && (c == '\n' || c == '\t');
    if ((is_control && !stays) || is_direction_mark(c)) {
      char escape[8];
      std::snprintf(escape, sizeof escape, c < 0x100 ? "\\x%02X" : "\\u%04X", c & 0xFFFF);
      result += escape;
    } else {
      result += text.substr(at, length);
    }
    at += length;
  }
  return result;
}

}  // namespace

std::string printable(std::string_view text) { return escaped(text, false); }

std::string printable_lines(std::string_view text) { return escaped(text, true); }

}  // namespace velmar::cli
