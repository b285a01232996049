#include <string_view>

#include "basic/rounding.h"
#include "basic/utf16.h"
#include "basic/val.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

double number_in_slice(std::u16string_view text, std::size_t start) {
  constexpr std::size_t slice = 4;
  return basic::val(basic::to_utf8(text.substr(start, slice)), basic::TypeCharacter::ignored);
}

}  // namespace

std::int16_t Velmar16::GetNs(std::string& BName) {
  const std::u16string text = basic::to_utf16(BName);
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (number_in_slice(text, i) == 0) continue;
    // Kept: the number is read one slice to the right. The slice in hand is the blank before a year
    // and the first three digits of it; of "12ab" it makes 2.
    return basic::to_int16(number_in_slice(text, i + 1));
  }
  return 0;
}

}  // namespace velmar
