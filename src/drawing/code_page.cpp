#include "drawing/code_page.h"

#include <iconv.h>

#include <array>
#include <cctype>
#include <cerrno>
#include <cstdint>

namespace velmar::drawing {
namespace {

struct PageName {
  std::string_view dxf, iconv;
};
// Names that are not simply "ansi_" or "dos" and a number.
constexpr std::array<PageName, 9> page_names{{{"ascii", "CP1252"},
                                              {"undefined", "CP1252"},
                                              {"gb2312", "CP936"},
                                              {"big5", "CP950"},
                                              {"johab", "JOHAB"},
                                              {"ksc5601", "CP949"},
                                              {"mac-roman", "MACINTOSH"},
                                              {"iso8859-1", "ISO-8859-1"},
                                              {"utf-8", "UTF-8"}}};

std::string iconv_name(std::string_view dxf_name) {
  std::string name;
  for (const char c : dxf_name)
    name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  for (const PageName& page : page_names) {
    if (name == page.dxf) return std::string(page.iconv);
  }
  for (const std::string_view prefix : {"ansi_", "dos"}) {
    if (name.starts_with(prefix)) return "CP" + name.substr(prefix.size());
  }
  return {};
}

constexpr char32_t no_utf8 = 0xDC00;

void append_escape(std::string& bytes, char32_t character) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  if (character > 0xFFFF) {
    append_escape(bytes, 0xD800 + ((character - 0x10000) >> 10));
    character = 0xDC00 + (character & 0x3FF);
  }
  bytes += "\\U+";
  for (int shift = 12; shift >= 0; shift -= 4) bytes += digits[(character >> shift) & 15];
}

}  // namespace

struct CodePage::Converters {
  explicit Converters(const std::string& name)
      : to_utf8(::iconv_open("UTF-8", name.c_str())),
        from_utf8(::iconv_open(name.c_str(), "UTF-8")) {}
  Converters(const Converters&) = delete;
  Converters& operator=(const Converters&) = delete;
  ~Converters() {
    if (valid(to_utf8)) ::iconv_close(to_utf8);
    if (valid(from_utf8)) ::iconv_close(from_utf8);
  }
  static bool valid(iconv_t converter) { return reinterpret_cast<std::intptr_t>(converter) != -1; }

  /// Converts as much of `input` as it can and takes that off; false if a character is left that it
  /// cannot.
  static bool convert(iconv_t converter, std::string_view& input, std::string& output) {
    ::iconv(converter, nullptr, nullptr, nullptr, nullptr);
    while (!input.empty()) {
      std::array<char, 512> buffer{};
      char* in = const_cast<char*>(input.data());
      std::size_t in_left = input.size();
      char* out = buffer.data();
      std::size_t out_left = buffer.size();
      const std::size_t result = ::iconv(converter, &in, &in_left, &out, &out_left);
      const bool moved = in_left != input.size() || out_left != buffer.size();
      output.append(buffer.data(), buffer.size() - out_left);
      input = {in, in_left};
      if (result == static_cast<std::size_t>(-1) && (errno != E2BIG || !moved)) return false;
    }
    return true;
  }

  iconv_t to_utf8, from_utf8;
};

CodePage CodePage::utf8() { return {}; }

CodePage CodePage::named(std::string_view dxf_name) {
  CodePage page;
  const std::string name = iconv_name(dxf_name);
  if (name == "UTF-8") return page;
  auto converters = std::make_shared<const Converters>(name.empty() ? "CP1252" : name);
  page.known_ = dxf_name.empty() || !name.empty();
  if (!Converters::valid(converters->to_utf8) || !Converters::valid(converters->from_utf8)) {
    converters = std::make_shared<const Converters>("CP1252");
    page.known_ = false;
  }
  page.converters_ = std::move(converters);
  return page;
}

std::string CodePage::to_utf8(std::string_view bytes) const {
  if (is_utf8()) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 2);
  while (!Converters::convert(converters_->to_utf8, bytes, text)) {
    text += bytes.front();
    bytes.remove_prefix(1);
  }
  return text;
}

std::string CodePage::from_utf8(std::string_view text) const {
  if (is_utf8()) return std::string(text);
  std::string bytes;
  while (!Converters::convert(converters_->from_utf8, text, bytes)) {
    const char32_t character = take_character(text);
    const bool is_byte = character >= no_utf8 + 0x80 && character <= no_utf8 + 0xFF;
    if (is_byte) {
      bytes += static_cast<char>(character & 0xFF);
    } else {
      append_escape(bytes, character);
    }
  }
  return bytes;
}

char32_t take_character(std::string_view& text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const char32_t first = byte(0);
  const std::size_t length = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
  char32_t character = length == 1 ? first : first & (0x7Fu >> length);
  bool valid = length != 0 && length <= text.size();
  for (std::size_t i = 1; valid && i < length; ++i) {
    valid = (byte(i) & 0xC0) == 0x80;
    character = character << 6 | (byte(i) & 0x3F);
  }
  text.remove_prefix(valid ? length : 1);
  return valid ? character : no_utf8 + first;
}

void append_utf8(std::string& text, char32_t character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
  } else if (character < 0x800) {
    text += static_cast<char>(0xC0 | character >> 6);
    text += static_cast<char>(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    text += static_cast<char>(0xE0 | character >> 12);
    text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (character & 0x3F));
  } else {
    text += static_cast<char>(0xF0 | character >> 18);
    text += static_cast<char>(0x80 | (character >> 12 & 0x3F));
    text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (character & 0x3F));
  }
}

}  // namespace velmar::drawing
