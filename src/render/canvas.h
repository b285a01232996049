#pragma once

#include <vector>

#include "drawing/geometry/matrix.h"
#include "render/dashing.h"
#include "render/painter.h"
#include "render/window.h"

namespace velmar::render {

/// How many dashes a picture may have yet, and how many lines were drawn through for it.
struct DashBudget {
  double left = 5'000'000;
  std::size_t drawn_through = 0;
};

/// How the lines of an entity are drawn.
struct Look {
  Ink ink = {};
  double width = 1;                      // of lines, in picture units
  const DashPattern* pattern = nullptr;  // in drawing units; none: drawn through
  double pattern_scale = 1;
  DashBudget* dashes = nullptr;  // none: a line of its own
};

/// Draws what is given in the coordinates of a drawing: maps it to the picture, leaves out what is
/// outside the window, makes dots of what is smaller than a pixel.
class Canvas {
 public:
  /// `place` maps the drawing to the picture.
  Canvas(Painter& painter, const Window& window, const drawing::Matrix& place)
      : painter_(&painter), window_(window), place_(place) {}

  Painter& painter() const { return *painter_; }
  /// Of the picture, or the viewport's part of it.
  const Window& window() const { return window_; }
  const drawing::Matrix& place() const { return place_; }
  /// The same for what is placed within this drawing.
  Canvas within(const drawing::Matrix& inner) const { return {*painter_, window_, place_ * inner}; }
  Canvas cut_to(const Window& window) const { return {*painter_, common(window_, window), place_}; }

  /// The most that lengths grow on their way to the picture.
  double magnification() const;
  /// An angle whose chords, on a circle of that radius, cannot be told from the arc.
  double step(double radius) const;
  Chain mapped(const Chain& chain) const;
  bool shows(const Window& in_picture) const;

  /// One line by the look's pattern.
  void curve(const Chain& chain, const Look& look) const;
  /// The same, drawn through.
  void line(const Chain& chain, const Look& look) const;
  void area(const std::vector<Chain>& areas, const Ink& ink, Rule rule = Rule::even_odd) const;

 private:
  void plain(const Chain& in_picture, const Look& look) const;
  void dashed(const Chain& chain, const Chain& in_picture, const Look& look) const;

  Painter* painter_;
  Window window_;
  drawing::Matrix place_;
};

}  // namespace velmar::render
