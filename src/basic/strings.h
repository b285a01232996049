#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace velmar::basic {

// Texts are UTF-8; positions and lengths count UTF-16 units, positions from 1. A pair cut in two
// leaves its half as utf16.h describes.

int len(std::string_view text);

/// Failure 5 for a negative length; a length beyond the text gives the whole of it.
std::string left(std::string_view text, int length);
std::string right(std::string_view text, int length);
/// Failure 5 for a start before 1; a start behind the text gives "".
std::string mid(std::string_view text, int start);
std::string mid(std::string_view text, int start, int length);

enum class Compare {
  binary,  // unit by unit
  text,    // without regard to letter case
};

/// The position of `find` at or after `start`, 0 if there is none. An empty `find` stands at
/// `start`; in an empty text, or from a start behind the text, nothing is found. Failure 5 for a
/// start before 1.
int in_str(std::string_view text, std::string_view find, Compare compare = Compare::binary,
           int start = 1);
bool contains_ignoring_case(std::string_view text, std::string_view find);
bool equal_ignoring_case(std::string_view left, std::string_view right);

/// The pieces between separators: none of an empty text, one when the separator is empty or does
/// not occur.
std::vector<std::string> split(std::string_view text, std::string_view separator,
                               Compare compare = Compare::binary);
std::string join(std::span<const std::string> pieces, std::string_view separator);

/// Replaces the first `count` occurrences from the left, all of them if it is negative. An empty
/// `find` changes nothing.
std::string replace(std::string_view text, std::string_view find, std::string_view with,
                    int count = -1);

/// Without the blanks (U+0020 alone) at both ends.
std::string trim(std::string_view text);

}  // namespace velmar::basic
