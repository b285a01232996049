#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace velmar::drawing {

class CodePageConverter;

/// The code page of a drawing's texts, as its header names it ("ANSI_1252", "dos850"), or UTF-8.
class CodePage {
 public:
  static CodePage utf8();
  /// Windows 1252 for a name that is empty or unknown; see known().
  static CodePage named(std::string_view dxf_name);

  bool is_utf8() const { return converter_ == nullptr; }
  bool known() const { return known_; }
  /// A byte without meaning stays as it is, so that it can be written back.
  std::string to_utf8(std::string_view bytes) const;
  /// A character that the page cannot hold is written as `\U+XXXX`.
  std::string from_utf8(std::string_view text) const;

 private:
  /// The characters of the bytes from 80 on, as UTF-8; empty for one that is none by itself.
  using HighBytes = std::array<std::string, 128>;
  static CodePage of(std::shared_ptr<const CodePageConverter> converter);
  static HighBytes high_bytes(const CodePageConverter& converter);

  std::shared_ptr<const CodePageConverter> converter_;  // none: UTF-8
  std::shared_ptr<const HighBytes> high_bytes_;         // asking the converter takes longer
  bool known_ = true;
};

/// The next character of UTF-8 text, taken off its front; a byte that is no UTF-8 is given as
/// 0xDC00 + byte.
char32_t take_character(std::string_view& text);
void append_utf8(std::string& text, char32_t character);

}  // namespace velmar::drawing
