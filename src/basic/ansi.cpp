#include "basic/ansi.h"

#include <algorithm>
#include <array>

#include "basic/failure.h"

namespace velmar::basic {
namespace {

// Codes 0x80 to 0x9F; outside them code and character are the same. The five codes that the page
// leaves undefined stand for the control characters of the same number, as Windows has it.
constexpr int first_special = 0x80;
constexpr auto special = std::to_array<char16_t>(
    {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
     0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
     0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178});

constexpr bool is_special(int code) {
  return code >= first_special && code < first_special + static_cast<int>(special.size());
}

}  // namespace

int ansi_code(char16_t unit) {
  if (unit <= 0xFF && !is_special(unit)) return unit;
  const auto found = std::ranges::find(special, unit);
  return found == special.end() ? '?' : first_special + static_cast<int>(found - special.begin());
}

char16_t ansi_character(int code) {
  if (code < 0 || code > 0xFF) throw Failure(bad_argument);
  if (!is_special(code)) return static_cast<char16_t>(code);
  return special[static_cast<std::size_t>(code - first_special)];
}

}  // namespace velmar::basic
