#include "component/kind_code.h"

#include <algorithm>

namespace velmar {
namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool is_lower_case_of(std::string_view given, std::string_view code) {
  return std::ranges::equal(given, code, {}, {}, lower);
}

}  // namespace

const KindCode* find_kind_code(std::string_view code) {
  const auto* row = std::ranges::find_if(kind_codes, [&](const KindCode& kind) {
    return code == kind.code || is_lower_case_of(code, kind.code);
  });
  return row == std::end(kind_codes) ? nullptr : row;
}

}  // namespace velmar
