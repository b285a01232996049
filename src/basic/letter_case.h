#pragma once

#include <string>
#include <string_view>

namespace velmar::basic {

// Letter case of all scripts, one character for one, so that the length never changes: the sharp s
// has no upper-case form here. The same on every system and under every locale: Unicode's simple
// mappings.

std::string upper(std::string_view text);
std::string lower(std::string_view text);

/// The character after each separator (blank, tab, LF, VT, FF, CR, NUL) and the first one in upper
/// case, all others in lower case; so a letter after an apostrophe, a hyphen or a bracket is in
/// lower case.
std::string proper(std::string_view text);

/// The text in UTF-16 units such that two texts which differ only in letter case become equal.
/// The dotless i and the dotted capital I of Turkish stay apart from "i".
std::u16string folded(std::string_view text);

}  // namespace velmar::basic
