#include <windows.h>

#include <array>

#include "system/locale.h"

namespace velmar::system {
namespace {

char mark(LCTYPE which, char otherwise) {
  std::array<wchar_t, 16> text{};
  const int length =
      ::GetLocaleInfoW(LOCALE_USER_DEFAULT, which, text.data(), static_cast<int>(text.size()));
  if (length < 2) return otherwise;  // it counts the zero at the end
  return text[0] < 0x80 ? static_cast<char>(text[0]) : ' ';
}

}  // namespace

basic::Separators user_separators() {
  return {.decimal = mark(LOCALE_SDECIMAL, '.'), .group = mark(LOCALE_STHOUSAND, ',')};
}

char16_t through_user_code_page(char16_t unit) {
  const auto before = static_cast<wchar_t>(unit);
  std::array<char, 4> bytes{};
  BOOL replaced = FALSE;
  const int count = ::WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, &before, 1, bytes.data(),
                                          static_cast<int>(bytes.size()), nullptr, &replaced);
  wchar_t after = L'?';
  if (count <= 0 || replaced || !::MultiByteToWideChar(CP_ACP, 0, bytes.data(), count, &after, 1)) {
    return u'?';
  }
  return static_cast<char16_t>(after);
}

}  // namespace velmar::system
