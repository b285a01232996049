#include "text/paragraph_text.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "basic/utf16.h"

namespace velmar {
namespace {

constexpr std::string_view hard_blank = "\u00A0";

/// One step through the content: a plain character, or formatting.
struct Token {
  std::size_t length = 1;  // in the content
  std::optional<std::string> plain;
};

/// Codes whose argument ends with a semicolon.
bool has_argument(char code) { return std::string_view("ACcFfHpQSTW").find(code) < 11; }

Token with_argument(std::string_view code) {
  std::size_t end = 2;
  while (end < code.size() && code[end] != ';') end += code[end] == '\\' ? 2 : 1;
  return {std::min(end + 1, code.size()), {}};
}

/// `\U+hhhh`; nothing for what is no such character.
std::optional<Token> numbered_character(std::string_view code) {
  constexpr std::size_t length = 7, digits_at = 3;
  if (code.size() < length || !code.starts_with("\\U+")) return std::nullopt;
  unsigned number = 0;
  const char* end = code.data() + length;
  if (std::from_chars(code.data() + digits_at, end, number, 16).ptr != end) return std::nullopt;
  const auto unit = static_cast<char16_t>(number);
  if (unit >= 0xD800 && unit <= 0xDFFF) return Token{length, {}};  // a half of a character
  return Token{length, basic::to_utf8(std::u16string(1, unit))};
}

Token backslash(std::string_view code) {
  if (code.size() == 1) return {1, "\\"};
  const char second = code[1];
  if (second == '\\' || second == '{' || second == '}') return {2, std::string(1, second)};
  if (second == '~') return {2, std::string(hard_blank)};
  if (const auto character = numbered_character(code)) return *character;
  return has_argument(second) ? with_argument(code) : Token{2, {}};
}

Token next_token(std::string_view content) {
  const char first = content.front();
  if (first == '\\') return backslash(content);
  if (first == '{' || first == '}') return {1, {}};
  return {1, std::string(1, first)};
}

}  // namespace

ParagraphText::ParagraphText(std::string_view content) {
  bool in_run = false;
  for (std::size_t i = 0; i < content.size();) {
    const Token token = next_token(content.substr(i));
    const std::string_view source = content.substr(i, token.length);
    if (token.plain) {
      if (!in_run) runs.push_back({{}, {i}});
      PlainRun& run = runs.back();
      run.text += *token.plain;
      run.at.resize(run.text.size(), i);
      run.at.push_back(i + token.length);
    } else {
      has_breaks |= source == "\\P" || source == "\\N" || source == "\\X";
      has_fractions |= source.starts_with("\\S");
    }
    in_run = token.plain.has_value();
    i += source.size();
  }
}

bool ParagraphText::is(std::string_view text) const {
  return runs.size() == 1 && runs.front().text == text && !has_breaks && !has_fractions;
}

std::string escaped(std::string_view plain) {
  std::string content;
  for (const char c : plain) {
    if (c == '\\' || c == '{' || c == '}') content += '\\';
    content += c;
  }
  return content;
}

}  // namespace velmar
