#pragma once

#include <cstddef>
#include <optional>

#include "drawing/drawing.h"
#include "render/canvas.h"
#include "render/settings.h"

namespace velmar::render {

/// Draws areas and pattern lines of hatches. A pattern that is too dense to be seen, or would take
/// more lines than a picture may have, becomes an even tint.
class HatchDrawer {
 public:
  HatchDrawer(const drawing::Drawing& drawing, const Settings& settings)
      : drawing_(drawing), settings_(settings) {}

  void draw(drawing::RecordId id, const drawing::Hatch& hatch, const Canvas& canvas,
            const Look& look);
  /// Hatches that became a tint for the number of their lines.
  std::size_t too_dense() const { return too_dense_; }

 private:
  bool draw_lines(const drawing::Hatch& hatch, const Canvas& plane, const Look& look);

  const drawing::Drawing& drawing_;
  const Settings& settings_;
  std::size_t lines_left_ = 2'000'000;
  std::size_t too_dense_ = 0;
};

}  // namespace velmar::render
