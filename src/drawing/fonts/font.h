#pragma once

#include <memory>
#include <string>
#include <vector>

#include "drawing/geometry/point.h"

namespace velmar::drawing {

/// What a character takes of a line, in units of the font's capital height: a text is scaled so
/// that a capital is as high as the text.
struct Glyph {
  double advance = 0;          // from where it begins to where the next one does
  double left = 0, right = 0;  // of what is drawn, from where it begins
  double top = 0, bottom = 0;  // of what is drawn, above and below the baseline
  bool drawn = true;           // false for blanks
};

/// How a character looks: in units of the capital height, from where it begins on the baseline.
struct GlyphShape {
  std::vector<std::vector<Point>> chains;
  bool filled = false;  // the chains close around areas (outline fonts); else they are strokes
};

class Font {
 public:
  virtual ~Font() = default;
  virtual Glyph glyph(char32_t character) const = 0;
  /// Lies within what glyph() says of the same character. Nothing for blanks.
  virtual GlyphShape shape(char32_t character) const = 0;
  /// How far the font goes below the baseline, as a bottom-aligned text counts it.
  virtual double descent() const = 0;
  /// Whether a line is as wide as its advances (outline fonts), or as what is drawn (stroke fonts).
  virtual bool aligns_by_advance() const = 0;
  /// The file that its outlines are in; empty for a stroke font.
  virtual std::string file() const { return {}; }
};
using FontPointer = std::shared_ptr<const Font>;

/// How a font is asked for: by its file ("txt", "simplex.shx", "arial.ttf") or, without a file, by
/// its family ("Times New Roman").
struct FontName {
  std::string file, family;
  bool bold = false, italic = false;
  friend auto operator<=>(const FontName&, const FontName&) = default;
};

}  // namespace velmar::drawing
