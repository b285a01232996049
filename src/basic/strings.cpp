#include "basic/strings.h"

#include "basic/failure.h"
#include "basic/letter_case.h"
#include "basic/utf16.h"

namespace velmar::basic {
namespace {

/// A length or a count of units, as a size.
std::size_t size_from(int length) {
  if (length < 0) throw Failure(bad_argument);
  return static_cast<std::size_t>(length);
}

/// A position from 1, as an index.
std::size_t index_from(int position) {
  if (position < 1) throw Failure(bad_argument);
  return static_cast<std::size_t>(position) - 1;
}

std::string part(std::string_view text, std::size_t index, std::size_t length) {
  const std::u16string units = to_utf16(text);
  if (index >= units.size()) return {};
  return to_utf8(std::u16string_view(units).substr(index, length));
}

int position_in(const std::u16string& text, const std::u16string& find, std::size_t index) {
  if (index >= text.size()) return 0;
  const std::size_t found = text.find(find, index);
  return found == std::u16string::npos ? 0 : static_cast<int>(found) + 1;
}

}  // namespace

int len(std::string_view text) { return static_cast<int>(to_utf16(text).size()); }

std::string left(std::string_view text, int length) { return part(text, 0, size_from(length)); }

std::string right(std::string_view text, int length) {
  const std::u16string units = to_utf16(text);
  const std::size_t wanted = size_from(length);
  if (wanted >= units.size()) return std::string(text);
  return to_utf8(std::u16string_view(units).substr(units.size() - wanted));
}

std::string mid(std::string_view text, int start) {
  return part(text, index_from(start), std::string::npos);
}

std::string mid(std::string_view text, int start, int length) {
  return part(text, index_from(start), size_from(length));
}

int in_str(std::string_view text, std::string_view find, Compare compare, int start) {
  const std::size_t index = index_from(start);
  if (compare == Compare::text) return position_in(folded(text), folded(find), index);
  return position_in(to_utf16(text), to_utf16(find), index);
}

bool contains_ignoring_case(std::string_view text, std::string_view find) {
  return in_str(text, find, Compare::text) > 0;
}

bool equal_ignoring_case(std::string_view left, std::string_view right) {
  return folded(left) == folded(right);
}

std::vector<std::string> split(std::string_view text, std::string_view separator, Compare compare) {
  if (text.empty()) return {};
  if (separator.empty()) return {std::string(text)};
  const std::u16string units = to_utf16(text);
  const std::u16string in = compare == Compare::text ? folded(text) : units;
  const std::u16string find = compare == Compare::text ? folded(separator) : to_utf16(separator);
  std::vector<std::string> pieces;
  std::size_t from = 0;
  for (std::size_t at = in.find(find); at != in.npos; at = in.find(find, from)) {
    pieces.push_back(to_utf8(units.substr(from, at - from)));
    from = at + find.size();
  }
  pieces.push_back(to_utf8(units.substr(from)));
  return pieces;
}

std::string join(std::span<const std::string> pieces, std::string_view separator) {
  std::string text;
  for (const std::string& piece : pieces) {
    if (&piece != &pieces.front()) text += separator;
    text += piece;
  }
  return text;
}

std::string replace(std::string_view text, std::string_view find, std::string_view with,
                    int count) {
  if (find.empty()) return std::string(text);
  std::string result;
  for (; count != 0; --count) {
    const std::size_t at = text.find(find);
    if (at == std::string_view::npos) break;
    result += text.substr(0, at);
    result += with;
    text.remove_prefix(at + find.size());
  }
  return result += text;
}

std::string trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') + 1 - first));
}

}  // namespace velmar::basic
