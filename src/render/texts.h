#pragma once

#include <map>
#include <utility>

#include "drawing/entities/text_layout.h"
#include "render/canvas.h"
#include "render/settings.h"

namespace velmar::render {

/// What the definition of an attribute shows outside of references: its tag.
drawing::Text shown_tag(const drawing::Attdef& definition);

/// Draws texts by the shapes of their characters, as wide and high as they are measured.
class TextDrawer {
 public:
  explicit TextDrawer(const Settings& settings) : settings_(settings) {}
  void draw(const drawing::TextLayout& layout, const Canvas& canvas, const Look& look);

 private:
  using Key = std::pair<const drawing::Font*, char32_t>;
  void draw_run(const drawing::TextRun& run, const Canvas& plane, const Look& look);
  void draw_bars(const drawing::TextRun& run, double advance, const Canvas& plane,
                 const Look& look);
  const drawing::GlyphShape& shape(const drawing::FontPointer& font, char32_t character);

  const Settings& settings_;
  std::map<Key, drawing::GlyphShape> shapes_;
  std::vector<drawing::FontPointer> fonts_;  // kept, so that their places stand for them
};

}  // namespace velmar::render
