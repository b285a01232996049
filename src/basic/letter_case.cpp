#include "basic/letter_case.h"

#include <algorithm>
#include <span>

#include "basic/letter_case_table.h"
#include "basic/utf16.h"

namespace velmar::basic {
namespace {

char32_t mapped(std::span<const CaseRange> table, char32_t character) {
  const auto range = std::ranges::lower_bound(table, character, {}, &CaseRange::last);
  if (range == table.end() || character < range->first) return character;
  if ((character - range->first) % range->step != 0) return character;
  return static_cast<char32_t>(static_cast<std::int32_t>(character) + range->distance);
}

char32_t upper_of(char32_t c) {
  if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 0x20 : c;
  return mapped(to_upper_case, c);
}

char32_t lower_of(char32_t c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 0x20 : c;
  return mapped(to_lower_case, c);
}

char32_t folded_of(char32_t c) {
  constexpr char32_t dotted_capital_i = 0x130, dotless_i = 0x131;
  return c == dotted_capital_i || c == dotless_i ? c : lower_of(upper_of(c));
}

bool separates_words(char32_t c) { return c == ' ' || c == '\0' || (c >= '\t' && c <= '\r'); }

template <class Map>
std::u16string each(std::string_view text, Map map) {
  const std::u16string units = to_utf16(text);
  std::u16string result;
  result.reserve(units.size());
  while (result.size() < units.size()) append(result, map(character_at(units, result.size())));
  return result;
}

}  // namespace

std::string upper(std::string_view text) { return to_utf8(each(text, upper_of)); }

std::string lower(std::string_view text) { return to_utf8(each(text, lower_of)); }

std::string proper(std::string_view text) {
  bool at_start = true;
  return to_utf8(each(text, [&](char32_t c) {
    const char32_t result = at_start ? upper_of(c) : lower_of(c);
    at_start = separates_words(c);
    return result;
  }));
}

std::u16string folded(std::string_view text) {
  std::u16string result(text.size(), u'\0');
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (static_cast<unsigned char>(c) >= 0x80) return each(text, folded_of);
    const bool is_capital = c >= 'A' && c <= 'Z';
    result[i] = static_cast<char16_t>(is_capital ? c - 'A' + 'a' : c);
  }
  return result;
}

}  // namespace velmar::basic
