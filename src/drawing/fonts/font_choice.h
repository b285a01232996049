#pragma once

#include <map>

#include "drawing/fonts/font.h"

namespace velmar::drawing {

/// The font of that name. A TrueType font is looked for in the system's folders, by its file and by
/// its family; where it is not there, a free font of the same widths stands for it (Liberation Sans
/// for Arial; see docs/embedded-host.md), else Liberation Sans, else DejaVu Sans, else a stroke
/// font. Files without an extension or with "shx" are stroke fonts.
FontPointer choose_font(const FontName& name);

/// The fonts of one drawing. A font is looked for when it is first measured.
class FontShelf {
 public:
  FontPointer font(const FontName& name);

 private:
  std::map<FontName, FontPointer> fonts_;
};
using FontShelfPointer = std::shared_ptr<FontShelf>;

}  // namespace velmar::drawing
