#pragma once

#include <filesystem>

#include "drawing/fonts/font.h"

namespace velmar::drawing {

/// A TrueType or OpenType font, read with FreeType. Null where the file is no such font, or this
/// program was built without FreeType. `capital` is the height of a capital in parts of the em; 0:
/// that of the font's own H. A font that stands for another one takes the other one's.
/// Characters that the font lacks are measured as a stroke font has them.
FontPointer open_outline_font(const std::filesystem::path& file, double capital = 0);

}  // namespace velmar::drawing
