#include "com/automation/bstr.h"

#include <cstring>
#include <new>

#include "basic/utf16.h"

namespace velmar::com {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::wstring to_wide(std::string_view text) {
  const std::u16string units = basic::to_utf16(text);
  return {units.begin(), units.end()};
}

std::string to_utf8(std::wstring_view text) {
  std::u16string units(text.size(), u'\0');
  std::memcpy(units.data(), text.data(), text.size() * sizeof(wchar_t));
  return basic::to_utf8(units);
}

Bstr::Bstr(std::string_view utf8) {
  const std::wstring wide = to_wide(utf8);
  text_ = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (!text_) throw std::bad_alloc();
}

std::string to_utf8(BSTR text) {
  return to_utf8(std::wstring_view(text ? text : L"", SysStringLen(text)));
}

}  // namespace velmar::com
