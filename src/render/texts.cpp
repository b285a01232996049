#include "render/texts.h"

#include <cmath>
#include <numbers>

#include "drawing/fonts/characters.h"

namespace velmar::render {
namespace {

using drawing::TextRun;

/// Texts lower than so many picture units are no more than a line.
constexpr double lowest = 1.5;
/// Places of bars, in text heights above the baseline.
constexpr double under = -0.2, over = 1.2, through = 0.5;

/// From a character's own coordinates to the layout's plane, so far along the line.
class RunPlace {
 public:
  explicit RunPlace(const TextRun& run) : run_(run) {
    constexpr double steepest = 85 * std::numbers::pi / 180;
    lean_ = std::tan(std::clamp(run.oblique, -steepest, steepest));
  }
  Point operator()(double x, double y) const {
    return run_.origin +
           Point{(x * run_.width_factor + lean_ * y) * run_.height, y * run_.height, 0};
  }

 private:
  const TextRun& run_;
  double lean_;
};

}  // namespace

drawing::Text shown_tag(const drawing::Attdef& definition) {
  drawing::Text text = definition;
  text.text = definition.tag;
  return text;
}

const drawing::GlyphShape& TextDrawer::shape(const drawing::FontPointer& font, char32_t character) {
  const auto [known, is_new] = shapes_.try_emplace(Key{font.get(), character});
  if (is_new) {
    fonts_.push_back(font);
    known->second = font->shape(character);
  }
  return known->second;
}

void TextDrawer::draw(const drawing::TextLayout& layout, const Canvas& canvas, const Look& look) {
  const Canvas plane = canvas.within(layout.world);
  Look through = look;
  through.pattern = nullptr;
  for (const TextRun& run : layout.runs) draw_run(run, plane, through);
  for (const auto& [from, to] : layout.bars) plane.line({from, to}, through);
}

void TextDrawer::draw_run(const TextRun& run, const Canvas& plane, const Look& look) {
  Look own = look;
  own.ink.color = settings_.color(run.color, run.true_color, look.ink.color);
  const auto box = outline(run);
  if (box && !plane.shows(window_of(plane.mapped(*box)))) return;
  const RunPlace place(run);
  if (box && !(run.height * plane.magnification() >= lowest)) {
    const auto middle = [&](std::size_t a, std::size_t b) { return ((*box)[a] + (*box)[b]) * 0.5; };
    return plane.line({middle(0, 3), middle(1, 2)}, own);
  }
  double pen = 0;
  for (std::string_view rest = run.text; !rest.empty();) {
    const char32_t character = drawing::next_character(rest);
    const drawing::GlyphShape& glyph = shape(run.font, character);
    std::vector<Chain> chains = glyph.chains;
    for (Chain& chain : chains) {
      for (Point& p : chain) p = place(pen + p.x, p.y);
    }
    if (glyph.filled) {
      plane.area(chains, own.ink);
    } else {
      for (const Chain& chain : chains) plane.line(chain, own);
    }
    pen += run.font->glyph(character).advance * run.tracking;
  }
  draw_bars(run, pen, plane, own);
}

void TextDrawer::draw_bars(const TextRun& run, double advance, const Canvas& plane,
                           const Look& look) {
  const RunPlace place(run);
  const auto bar = [&](bool wanted, double y) {
    if (wanted) plane.line({place(0, y), place(advance, y)}, look);
  };
  bar(run.underline, under);
  bar(run.overline, over);
  bar(run.strike, through);
}

}  // namespace velmar::render
