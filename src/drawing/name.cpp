#include "drawing/name.h"

#include <cwctype>

#include "drawing/code_page.h"

namespace velmar::drawing {
namespace {

char32_t folded(char32_t character) {
  if (character < 0x80) {
    return character >= 'A' && character <= 'Z' ? character - 'A' + 'a' : character;
  }
  return static_cast<char32_t>(std::towlower(static_cast<wint_t>(character)));
}

}  // namespace

bool same_name(std::string_view a, std::string_view b) {
  if (a == b) return true;
  while (!a.empty() && !b.empty()) {
    if (folded(take_character(a)) != folded(take_character(b))) return false;
  }
  return a.empty() && b.empty();
}

std::string folded_name(std::string_view name) {
  std::string result;
  while (!name.empty()) append_utf8(result, folded(take_character(name)));
  return result;
}

}  // namespace velmar::drawing
