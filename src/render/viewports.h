#pragma once

#include <optional>
#include <vector>

#include "drawing/drawing.h"
#include "drawing/geometry/matrix.h"
#include "render/painter.h"

namespace velmar::render {

/// What a VIEWPORT of a sheet shows of model space, and where.
struct Viewport {
  Point center;  // on the sheet
  double width = 0, height = 0;
  drawing::View view;
  bool on = true;
  std::vector<drawing::LayerId> frozen;  // here alone
  Chain border;                          // on the sheet; not closed

  /// From model space to the sheet.
  drawing::Matrix place() const;
  double scale() const { return view.height > 0 ? height / view.height : 0; }
};

/// Nothing for the viewport that shows the sheet itself, and for one without a size.
std::optional<Viewport> read_viewport(const drawing::Drawing& drawing, drawing::RecordId id);

}  // namespace velmar::render
