#pragma once

#include <string>
#include <string_view>

#include "drawing/drawing.h"

namespace velmar::cli {

/// "line 811 (#2F): what is wrong", without what is not known; a place in a binary drawing is a
/// byte.
std::string warning_text(const drawing::Warning& warning, bool binary);

/// Writes what is wrong with an opened drawing to standard error.
void show_warnings(std::string_view file, const drawing::Drawing& drawing);

}  // namespace velmar::cli
