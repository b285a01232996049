#include "render/frame.h"

#include <cmath>

#include "drawing/error.h"

namespace velmar::render {
namespace {

constexpr double largest_side = 30'000, largest_area = 200e6;
constexpr double shortest_side = 64;

void check_size(const Frame& frame) {
  if (frame.width <= largest_side && frame.height <= largest_side &&
      frame.width * frame.height <= largest_area) {
    return;
  }
  throw drawing::Error("a picture of " + std::to_string(std::llround(frame.width)) + " by " +
                       std::to_string(std::llround(frame.height)) +
                       " is too large: at most 30000 a side and 200 million in all; choose a "
                       "smaller --size or --scale");
}

/// The sides of a picture that holds what is shown and nothing else.
void choose_size(const Window& shown, const FrameOptions& options, Frame& frame) {
  const double around = 2 * options.margin;
  if (options.scale) {
    frame.width = std::max(std::ceil(shown.width() * *options.scale + around), 1.0);
    frame.height = std::max(std::ceil(shown.height() * *options.scale + around), 1.0);
    return;
  }
  const double longest = std::max(shown.width(), shown.height());
  const double room = std::max(options.longest - around, 1.0);
  const auto side = [&](double length) {
    const double fitting = longest > 0 ? length / longest * room + around : options.longest;
    return std::round(std::clamp(fitting, shortest_side, options.longest));
  };
  frame.width = side(shown.width());
  frame.height = side(shown.height());
}

}  // namespace

Frame make_frame(const Window& shown, const FrameOptions& options) {
  if (!std::isfinite(shown.width()) || !std::isfinite(shown.height())) {
    throw drawing::Error(
        "what is drawn has no finite size: say which --window to show, and look for points far "
        "away with 'velmar info --check'");
  }
  Frame frame;
  if (options.size) {
    frame.width = options.size->first;
    frame.height = options.size->second;
  } else {
    choose_size(shown, options, frame);
  }
  check_size(frame);
  const double wide = frame.width - 2 * options.margin, high = frame.height - 2 * options.margin;
  if (!(wide > 0) || !(high > 0)) {
    throw drawing::Error("the margins leave no room in a picture of " +
                         std::to_string(std::llround(frame.width)) + " by " +
                         std::to_string(std::llround(frame.height)) +
                         ": choose a smaller --margin or a larger --size");
  }
  double scale = options.scale.value_or(0);
  if (!options.scale) {
    scale = std::min(shown.width() > 0 ? wide / shown.width() : INFINITY,
                     shown.height() > 0 ? high / shown.height() : INFINITY);
    if (!std::isfinite(scale)) scale = 1;
  }
  const drawing::Matrix scaled{
      drawing::x_axis * scale, drawing::y_axis * -scale, drawing::z_axis * scale, {}};
  frame.place = drawing::translation({frame.width / 2, frame.height / 2, 0}) * scaled *
                drawing::translation(-shown.middle());
  return frame;
}

}  // namespace velmar::render
