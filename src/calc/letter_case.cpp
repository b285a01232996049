#include "basic/letter_case.h"

#include "basic/utf16.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

constexpr int capitals_to_small = 'a' - 'A';

char16_t invert_letter_code(char16_t code) {
  if (code >= u'A' && code <= u'Z') return static_cast<char16_t>(code + capitals_to_small);
  if (code >= u'a' && code <= u'z') return static_cast<char16_t>(code - capitals_to_small);
  return code;
}

}  // namespace

std::string Velmar16::UpperCase(std::string& AsString) { return AsString = basic::upper(AsString); }

std::string Velmar16::LowerCase(std::string& AsString) { return AsString = basic::lower(AsString); }

std::string Velmar16::TitleCase(std::string& AsString) {
  return AsString = basic::proper(AsString);
}

// Kept: every character passes through the ANSI code page, which makes question marks of those that
// it does not have; and only the letters A to Z change their case.
std::string Velmar16::ReverseCase(std::string& AsString) {
  std::u16string text = basic::to_utf16(AsString);
  for (char16_t& unit : text) {
    unit = invert_letter_code(system().through_ansi(unit));
  }
  return AsString = basic::to_utf8(text);
}

}  // namespace velmar
