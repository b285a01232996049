#include "drawing/code_page.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>

#include "drawing/code_page_converter.h"

namespace velmar::drawing {
namespace {

struct PageName {
  std::string_view dxf, converter;
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

std::string converter_name(std::string_view dxf_name) {
  std::string name;
  for (const char c : dxf_name)
    name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  for (const PageName& page : page_names) {
    if (name == page.dxf) return std::string(page.converter);
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

CodePage CodePage::utf8() { return {}; }

CodePage CodePage::named(std::string_view dxf_name) {
  constexpr const char* standard_name = "CP1252";
  static const CodePage standard = of(open_converter(standard_name));
  const std::string name = converter_name(dxf_name);
  if (name == "UTF-8") return utf8();
  if (dxf_name.empty() || name == standard_name) return standard;
  if (!name.empty()) {
    if (auto converter = open_converter(name)) return of(std::move(converter));
  }
  CodePage page = standard;
  page.known_ = false;
  return page;
}

CodePage CodePage::of(std::shared_ptr<const CodePageConverter> converter) {
  CodePage page;
  page.high_bytes_ = std::make_shared<const HighBytes>(high_bytes(*converter));
  page.converter_ = std::move(converter);
  return page;
}

CodePage::HighBytes CodePage::high_bytes(const CodePageConverter& converter) {
  HighBytes all;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const char byte = static_cast<char>(0x80 + i);
    std::string_view left(&byte, 1);
    if (!converter.to_utf8(left, all[i])) all[i].clear();
  }
  return all;
}

std::string CodePage::to_utf8(std::string_view bytes) const {
  if (is_utf8()) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 2);
  while (true) {
    const auto high = std::ranges::find_if(bytes, [](char c) { return (c & 0x80) != 0; });
    text.append(bytes.begin(), high);
    bytes.remove_prefix(static_cast<std::size_t>(high - bytes.begin()));
    if (bytes.empty()) break;
    const std::string& character = (*high_bytes_)[static_cast<unsigned char>(bytes.front()) & 0x7F];
    if (character.empty()) break;
    text += character;
    bytes.remove_prefix(1);
  }
  while (!converter_->to_utf8(bytes, text)) {
    text += bytes.front();
    bytes.remove_prefix(1);
  }
  return text;
}

std::string CodePage::from_utf8(std::string_view text) const {
  if (is_utf8()) return std::string(text);
  std::string bytes;
  while (!converter_->from_utf8(text, bytes)) {
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
