#pragma once

#include "basic/separators.h"

namespace velmar::system {

/// The marks that the user's locale puts into numbers. A group mark that is no single character of
/// ASCII (a narrow blank) is given as a blank.
basic::Separators user_separators();

/// What becomes of a UTF-16 unit in the user's ANSI code page and back: itself, or a question mark.
char16_t through_user_code_page(char16_t unit);

}  // namespace velmar::system
