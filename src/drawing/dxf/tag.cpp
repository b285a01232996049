#include "drawing/dxf/tag.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>

#include "drawing/dxf/lines.h"

namespace velmar::drawing::dxf {
namespace {

struct KindRange {
  int first, last;
  ValueKind kind;
};
// Codes that are not listed hold text; handles are text in both forms.
constexpr std::array kind_ranges{
    KindRange{10, 59, ValueKind::real},      KindRange{60, 79, ValueKind::int16},
    KindRange{90, 99, ValueKind::int32},     KindRange{110, 149, ValueKind::real},
    KindRange{160, 169, ValueKind::int64},   KindRange{170, 179, ValueKind::int16},
    KindRange{210, 239, ValueKind::real},    KindRange{270, 289, ValueKind::int16},
    KindRange{290, 299, ValueKind::flag},    KindRange{310, 319, ValueKind::chunk},
    KindRange{370, 389, ValueKind::int16},   KindRange{400, 409, ValueKind::int16},
    KindRange{420, 429, ValueKind::int32},   KindRange{440, 459, ValueKind::int32},
    KindRange{460, 469, ValueKind::real},    KindRange{1004, 1004, ValueKind::chunk},
    KindRange{1010, 1059, ValueKind::real},  KindRange{1060, 1070, ValueKind::int16},
    KindRange{1071, 1071, ValueKind::int32},
};

constexpr int highest_code = 1071;

constexpr auto kinds_by_code = [] {
  std::array<ValueKind, highest_code + 1> kinds{};
  for (const KindRange& range : kind_ranges) {
    for (int code = range.first; code <= range.last; ++code) {
      kinds[static_cast<std::size_t>(code)] = range.kind;
    }
  }
  return kinds;
}();

std::uint32_t binary_size(ValueKind kind) {
  switch (kind) {
    case ValueKind::real:
    case ValueKind::int64:
      return 8;
    case ValueKind::int32:
      return 4;
    case ValueKind::int16:
      return 2;
    default:
      return 1;
  }
}

std::string_view trimmed(std::string_view text) {
  return dxf::trimmed(text.data(), text.data() + text.size());
}

template <class T>
T load(std::string_view bytes, std::uint32_t at) {
  T value{};
  std::memcpy(&value, bytes.data() + at, sizeof value);
  return value;
}

template <class T>
std::string stored(T value) {
  std::string bytes(sizeof value, '\0');
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

std::string_view number_text(std::string_view bytes, const Tag& tag) {
  std::string_view text = trimmed(tag.text(bytes));
  if (text.size() > 1 && text.front() == '+') text.remove_prefix(1);
  return text;
}

/// Hexadecimal digits at the front of `text`; nothing if there are not so many.
std::optional<std::uint32_t> hexadecimal(std::string_view text, std::size_t digits) {
  if (text.size() < digits) return std::nullopt;
  std::uint32_t value = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + digits, value, 16);
  if (error != std::errc() || stop != text.data() + digits) return std::nullopt;
  return value;
}

/// `\U+XXXX` at the front of `text`, also as a surrogate pair; taken off.
bool take_unicode_escape(std::string_view& text, std::string& out) {
  constexpr std::size_t length = 7;
  if (!text.starts_with("\\U+")) return false;
  const auto unit = hexadecimal(text.substr(3), 4);
  if (!unit) return false;
  text.remove_prefix(length);
  char32_t character = *unit;
  if (character >= 0xD800 && character < 0xDC00 && text.starts_with("\\U+")) {
    const auto low = hexadecimal(text.substr(3), 4);
    if (low && *low >= 0xDC00 && *low < 0xE000) {
      character = 0x10000 + ((character - 0xD800) << 10) + (*low - 0xDC00);
      text.remove_prefix(length);
    }
  }
  append_utf8(out, character);
  return true;
}

/// `\M+nXXXX`: a double-byte character of the n-th east Asian code page.
bool take_multibyte_escape(std::string_view& text, std::string& out) {
  if (!text.starts_with("\\M+") || text.size() < 8 || text[3] < '1' || text[3] > '5') return false;
  const auto code = hexadecimal(text.substr(4), 4);
  if (!code) return false;
  static const std::array pages{CodePage::named("ansi_932"), CodePage::named("ansi_950"),
                                CodePage::named("ansi_949"), CodePage::named("johab"),
                                CodePage::named("ansi_936")};
  const std::array<char, 2> bytes{static_cast<char>(*code >> 8), static_cast<char>(*code & 0xFF)};
  out += pages[static_cast<std::size_t>(text[3] - '1')].to_utf8({bytes.data(), bytes.size()});
  text.remove_prefix(8);
  return true;
}

bool take_caret(std::string_view& text, std::string& out) {
  if (text.size() < 2) return false;
  const char letter = text[1];
  if (letter == ' ') {
    out += '^';
  } else if (letter >= 'A' && letter <= '_') {
    out += static_cast<char>(letter - 'A' + 1);
  } else {
    return false;
  }
  text.remove_prefix(2);
  return true;
}

std::string unescaped(std::string_view text, bool carets, bool characters) {
  std::string out;
  out.reserve(text.size());
  while (true) {
    const auto special = std::ranges::find_if(text, [](char c) { return c == '\\' || c == '^'; });
    out.append(text.begin(), special);
    text.remove_prefix(static_cast<std::size_t>(special - text.begin()));
    if (text.empty()) break;
    const char c = text.front();
    if (characters && c == '\\' &&
        (take_unicode_escape(text, out) || take_multibyte_escape(text, out))) {
      continue;
    }
    if (c == '^' && carets && take_caret(text, out)) continue;
    out += c;
    text.remove_prefix(1);
  }
  return out;
}

}  // namespace

ValueKind value_kind(int code) {
  return code >= 0 && code <= highest_code ? kinds_by_code[static_cast<std::size_t>(code)]
                                           : ValueKind::text;
}

std::optional<std::int32_t> group_code(std::string_view line) {
  line = trimmed(line);
  std::int32_t code = 0;
  const auto [stop, error] = std::from_chars(line.data(), line.data() + line.size(), code);
  if (error != std::errc() || stop != line.data() + line.size()) return std::nullopt;
  return code;
}

bool TagCursor::next_text(Tag& tag) {
  if (at_ >= bytes_.size()) return stop(false);
  const char* const start = bytes_.data();
  const char* const end = start + bytes_.size();
  const char* const code_end = find_byte(start + at_, end, format_.line_end);
  if (code_end == end) return stop(true);
  tag.code = plain_code(start + at_, code_end);
  if (tag.code < 0) {
    const auto code = group_code(dxf::trimmed(start + at_, code_end));
    if (!code) return stop(true);
    tag.code = *code;
  }
  const char* const value = code_end + 1;
  const char* const line_end = find_byte(value, end, format_.line_end);
  const bool carriage = line_end != value && line_end[-1] == '\r';
  const auto offset = [start](const char* at) { return static_cast<std::uint32_t>(at - start); };
  tag.begin = at_;
  tag.value = offset(value);
  tag.value_end = offset(line_end) - (carriage ? 1 : 0);
  tag.next = at_ = line_end == end ? offset(end) : offset(line_end) + 1;
  return true;
}

bool TagCursor::next_binary(Tag& tag) {
  const auto size = static_cast<std::uint32_t>(bytes_.size());
  if (at_ >= size) return stop(false);
  std::uint32_t code_size = format_.wide_codes ? 2 : 1;
  if (!format_.wide_codes && bytes_[at_] == '\xFF') code_size = 3;
  if (size - at_ < code_size) return stop(true);
  tag.code = code_size == 1 ? static_cast<unsigned char>(bytes_[at_])
                            : load<std::int16_t>(bytes_, at_ + (code_size - 2));
  tag.begin = at_;
  tag.value = at_ + code_size;
  const ValueKind kind = value_kind(tag.code);
  if (kind == ValueKind::text) {
    const auto zero = bytes_.find('\0', tag.value);
    if (tag.code < 0 || zero == std::string_view::npos) return stop(true);
    tag.value_end = static_cast<std::uint32_t>(zero);
    tag.next = tag.value_end + 1;
  } else {
    std::uint32_t length = binary_size(kind);
    if (kind == ValueKind::chunk) {
      if (tag.value >= size) return stop(true);
      length = static_cast<unsigned char>(bytes_[tag.value]);
      ++tag.value;
    }
    if (size - tag.value < length) return stop(true);
    tag.value_end = tag.next = tag.value + length;
  }
  at_ = tag.next;
  return true;
}

std::optional<double> real_value(std::string_view bytes, const Tag& tag, const Format& format) {
  double value = 0;
  if (format.binary) {
    if (value_kind(tag.code) != ValueKind::real) return std::nullopt;
    value = load<double>(bytes, tag.value);
  } else {
    const std::string_view text = number_text(bytes, tag);
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || stop != text.data() + text.size()) return std::nullopt;
  }
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

std::optional<std::int64_t> integer_value(std::string_view bytes, const Tag& tag,
                                          const Format& format) {
  if (format.binary) {
    switch (value_kind(tag.code)) {
      case ValueKind::int16:
        return load<std::int16_t>(bytes, tag.value);
      case ValueKind::int32:
        return load<std::int32_t>(bytes, tag.value);
      case ValueKind::int64:
        return load<std::int64_t>(bytes, tag.value);
      case ValueKind::flag:
        return static_cast<unsigned char>(bytes[tag.value]);
      default:
        return std::nullopt;
    }
  }
  const std::string_view text = number_text(bytes, tag);
  std::int64_t value = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc() && stop == text.data() + text.size()) return value;
  // Some programs write whole numbers with decimals.
  const auto real = real_value(bytes, tag, format);
  if (!real || std::abs(*real) > 1e15 || *real != std::trunc(*real)) return std::nullopt;
  return static_cast<std::int64_t>(*real);
}

std::string text_value(std::string_view bytes, const Tag& tag, const Format& format) {
  return decode_text(tag.text(bytes), format);
}

std::string value_as_text(std::string_view bytes, const Tag& tag, const Format& format) {
  const ValueKind kind = value_kind(tag.code);
  if (!format.binary || kind == ValueKind::text) return text_value(bytes, tag, format);
  if (kind == ValueKind::real) {
    const auto value = real_value(bytes, tag, format);
    return value ? real_bytes(*value, Format{}) : std::string();
  }
  const auto value = integer_value(bytes, tag, format);
  return value ? std::to_string(*value) : std::string();
}

std::string decode_text(std::string_view raw, const Format& format) {
  bool is_ascii = true, plain = true;
  for (const char c : raw) {
    is_ascii = is_ascii && c >= 0;
    plain = plain && c != '\\' && c != '^';
  }
  if (is_ascii && plain) return std::string(raw);
  return unescaped(is_ascii ? std::string(raw) : format.code_page.to_utf8(raw), !format.binary,
                   true);
}

std::string text_as_written(std::string_view raw, const Format& format) {
  return unescaped(format.code_page.to_utf8(raw), !format.binary, false);
}

std::string real_bytes(double value, const Format& format) {
  if (format.binary) return stored(value);
  std::array<char, 32> buffer{};
  const auto [stop, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  std::string text(buffer.data(), stop);
  if (text.find_first_of(".en") == std::string::npos) text += ".0";
  return text;
}

std::string integer_bytes(int code, std::int64_t value, const Format& format) {
  if (!format.binary) {
    const ValueKind kind = value_kind(code);
    const std::size_t width = kind == ValueKind::int64 ? 18 : kind == ValueKind::int32 ? 9 : 6;
    const std::string digits = std::to_string(value);
    return std::string(digits.size() < width ? width - digits.size() : 0, ' ') + digits;
  }
  switch (value_kind(code)) {
    case ValueKind::int32:
      return stored(static_cast<std::int32_t>(value));
    case ValueKind::int64:
      return stored(value);
    case ValueKind::flag:
      return stored(static_cast<std::uint8_t>(value));
    default:
      return stored(static_cast<std::int16_t>(value));
  }
}

std::string text_bytes(std::string_view utf8, const Format& format) {
  if (format.binary) return format.code_page.from_utf8(utf8.substr(0, utf8.find('\0')));
  std::string escaped;
  escaped.reserve(utf8.size());
  for (const char c : utf8) {
    if (c == '^') {
      escaped += "^ ";
    } else if (c >= 0 && c < ' ') {
      if (c != '\0') escaped += {'^', static_cast<char>(c + 'A' - 1)};
    } else {
      escaped += c;
    }
  }
  return format.code_page.from_utf8(escaped);
}

void append_code(std::string& out, int code, const Format& format) {
  if (format.binary) {
    if (format.wide_codes || code >= 255 || code < 0) {
      if (!format.wide_codes) out += '\xFF';
      out += stored(static_cast<std::int16_t>(code));
    } else {
      out += static_cast<char>(code);
    }
    return;
  }
  const std::string digits = std::to_string(code);
  out.append(digits.size() < 3 ? 3 - digits.size() : 0, ' ').append(digits) += format.new_line;
}

void append_real(std::string& out, int code, double value, const Format& format) {
  append_code(out, code, format);
  out += real_bytes(value, format);
  if (!format.binary) out += format.new_line;
}

void append_integer(std::string& out, int code, std::int64_t value, const Format& format) {
  append_code(out, code, format);
  out += integer_bytes(code, value, format);
  if (!format.binary) out += format.new_line;
}

void append_text(std::string& out, int code, std::string_view utf8, const Format& format) {
  append_code(out, code, format);
  out += text_bytes(utf8, format);
  if (format.binary) {
    out += '\0';
  } else {
    out += format.new_line;
  }
}

}  // namespace velmar::drawing::dxf
