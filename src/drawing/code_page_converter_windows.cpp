#include <windows.h>

#include <array>
#include <charconv>
#include <optional>

#include "drawing/code_page.h"
#include "drawing/code_page_converter.h"

namespace velmar::drawing {
namespace {

bool is_ascii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// The number by which the system knows the page; 0: it has no such page.
UINT number_of(std::string_view name) {
  if (name == "JOHAB") return 1361;
  if (name == "MACINTOSH") return 10000;
  if (name == "ISO-8859-1") return 28591;
  constexpr std::string_view prefix = "CP";
  if (!name.starts_with(prefix)) return 0;
  UINT number = 0;
  const char* const end = name.data() + name.size();
  const auto [stop, error] = std::from_chars(name.data() + prefix.size(), end, number);
  return error == std::errc() && stop == end ? number : 0;
}

/// The system gives control characters, or private ones, for bytes to which the page gives no
/// meaning.
bool is_stand_in(char32_t character) {
  return (character >= 0x80 && character < 0xA0) || (character >= 0xF8A0 && character < 0xF900);
}

class WindowsConverter : public CodePageConverter {
 public:
  explicit WindowsConverter(UINT page) : page_(page) {}

  bool to_utf8(std::string_view& input, std::string& output) const override {
    while (!input.empty()) {
      if (is_ascii(input.front())) {
        output += input.front();
        input.remove_prefix(1);
        continue;
      }
      const std::size_t length =
          ::IsDBCSLeadByteEx(page_, static_cast<BYTE>(input.front())) ? 2 : 1;
      const auto character = decode(input.substr(0, length));
      if (length > input.size() || !character) return false;
      append_utf8(output, *character);
      input.remove_prefix(length);
    }
    return true;
  }

  bool from_utf8(std::string_view& input, std::string& output) const override {
    while (!input.empty()) {
      std::string_view rest = input;
      const char32_t character = take_character(rest);
      if (!encode(character, output)) return false;
      input = rest;
    }
    return true;
  }

 private:
  std::optional<char32_t> decode(std::string_view bytes) const {
    wchar_t unit = 0;
    const int count = ::MultiByteToWideChar(page_, MB_ERR_INVALID_CHARS, bytes.data(),
                                            static_cast<int>(bytes.size()), &unit, 1);
    if (count != 1 || (!has_controls() && is_stand_in(unit))) return std::nullopt;
    return unit;
  }

  bool encode(char32_t character, std::string& output) const {
    if (character < 0x80) {
      output += static_cast<char>(character);
      return true;
    }
    if (character > 0xFFFF || (character >= 0xD800 && character < 0xE000)) return false;
    if (!has_controls() && is_stand_in(character)) return false;
    const auto unit = static_cast<wchar_t>(character);
    std::array<char, 4> bytes{};
    BOOL replaced = FALSE;
    const int count = ::WideCharToMultiByte(page_, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes.data(),
                                            static_cast<int>(bytes.size()), nullptr, &replaced);
    if (count <= 0 || replaced) return false;
    output.append(bytes.data(), static_cast<std::size_t>(count));
    return true;
  }

  bool has_controls() const { return page_ == 28591; }

  UINT page_;
};

}  // namespace

std::shared_ptr<const CodePageConverter> open_converter(const std::string& name) {
  const UINT page = number_of(name);
  CPINFO info{};
  // The pages that are above two bytes a character (UTF-8, UTF-7, GB18030) name no drawing's texts.
  if (page == 0 || !::GetCPInfo(page, &info) || info.MaxCharSize > 2) return nullptr;
  return std::make_shared<const WindowsConverter>(page);
}

}  // namespace velmar::drawing
