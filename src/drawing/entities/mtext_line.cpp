#include "drawing/entities/mtext_line.h"

#include <algorithm>

#include "drawing/fonts/line_measure.h"

namespace velmar::drawing {
namespace {

// A stack in heights of its texts: the upper baseline above the lower one, the height of the whole,
// the bar, and how far a slanted bar leans.
constexpr double stacked_rise = 1.4, stacked_height = 2.4, bar_rise = 1.2;
constexpr double slanted_rise = 0.6, slanted_height = 1.6, slanted_gap = 0.35;

TextRun run_of(const std::string& text, const CharacterFormat& format) {
  TextRun run;
  run.text = text;
  run.font = format.font;
  run.height = format.height;
  run.width_factor = format.width_factor;
  run.oblique = format.oblique;
  run.tracking = format.tracking;
  run.underline = format.underline;
  run.overline = format.overline;
  run.strike = format.strike;
  run.color = format.color;
  run.true_color = format.true_color;
  return run;
}

double slant(const Stack& stack) {
  return stack.kind == '#' ? slanted_gap * stack.format.height : 0;
}

}  // namespace

WordWidth word_width(const std::string& text, const CharacterFormat& format) {
  const LineMeasure line = measure_line(*format.font, text, format.tracking);
  const double along = format.height * format.width_factor;
  const double reach = format.font->aligns_by_advance() ? line.width : line.right;
  return {line.advance * along, reach * along};
}

WordWidth word_width(const Stack& stack) {
  const WordWidth above = word_width(stack.above, stack.format);
  const WordWidth below = word_width(stack.below, stack.format);
  if (stack.kind == '#') {
    return {above.advance + slant(stack) + below.advance,
            above.advance + slant(stack) + below.width};
  }
  return {std::max(above.advance, below.advance), std::max(above.width, below.width)};
}

void MTextLine::put(TextRun run, double advance, double free_height, std::int32_t valign) {
  run.origin.x += pen_;
  runs_.push_back({std::move(run), free_height, valign});
  pen_ += advance;
}

void MTextLine::add(const std::string& text, const CharacterFormat& format) {
  const WordWidth size = word_width(text, format);
  if (size.width > 0) width_ = pen_ + size.width;
  height_ = std::max(height_, format.height);
  put(run_of(text, format), size.advance, format.height, format.valign);
}

void MTextLine::add(const Stack& stack) {
  const WordWidth size = word_width(stack);
  const WordWidth above = word_width(stack.above, stack.format);
  const WordWidth below = word_width(stack.below, stack.format);
  const bool slanted = stack.kind == '#';
  const double h = stack.format.height;
  const double whole = (slanted ? slanted_height : stacked_height) * h;
  const std::int32_t valign = stack.format.valign;

  TextRun upper = run_of(stack.above, stack.format), lower = run_of(stack.below, stack.format);
  upper.origin = {slanted ? 0 : (size.width - above.width) / 2,
                  (slanted ? slanted_rise : stacked_rise) * h, 0};
  lower.origin.x = slanted ? above.advance + slant(stack) : (size.width - below.width) / 2;
  put(std::move(upper), 0, whole, valign);
  put(std::move(lower), 0, whole, valign);
  if (slanted) {
    const double foot = pen_ + above.advance;
    bars_.push_back({{foot, 0, 0}, {foot + slant(stack), whole, 0}, whole, valign});
  } else if (stack.kind == '/') {
    bars_.push_back({{pen_, bar_rise * h, 0}, {pen_ + size.width, bar_rise * h, 0}, whole, valign});
  }
  if (size.width > 0) width_ = pen_ + size.width;
  height_ = std::max(height_, valign == 0 ? whole : h);
  pen_ += size.advance;
}

/// How far something is moved up from the baseline to stand where its format says.
double MTextLine::rise(double height, std::int32_t valign) const {
  if (valign == 1) return (height_ - height) / 2;
  return valign == 2 ? height_ - height : 0;
}

void MTextLine::place(Point at, TextLayout& layout) const {
  for (const Placed& placed : runs_) {
    TextRun run = placed.run;
    run.origin = run.origin + at;
    run.origin.y += rise(placed.free_height, placed.valign);
    layout.runs.push_back(std::move(run));
  }
  for (const Bar& bar : bars_) {
    const Point up{0, rise(bar.free_height, bar.valign), 0};
    layout.bars.emplace_back(bar.from + at + up, bar.to + at + up);
  }
}

}  // namespace velmar::drawing
