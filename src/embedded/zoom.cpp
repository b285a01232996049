#include "embedded/zoom.h"

#include <algorithm>
#include <optional>

#include "drawing/extents.h"
#include "drawing/geometry/ocs.h"
#include "embedded/current.h"

namespace velmar::embedded {
namespace {

using drawing::Box;
using drawing::Drawing;
using drawing::Point;
using drawing::RecordId;
using drawing::SpaceId;
using drawing::View;

/// From world coordinates to the display plane of a view.
drawing::Matrix to_display(const View& view) {
  return drawing::rotation({}, drawing::z_axis, view.twist) *
         drawing::world_to_ocs(view.direction) * drawing::translation(view.target * -1);
}

Box displayed(const View& view, const Box& box) {
  const drawing::Matrix matrix = to_display(view);
  Box shown;
  for (int corner = 0; corner < 8; ++corner) {
    shown.add(matrix({(corner & 1) != 0 ? box.max.x : box.min.x,
                      (corner & 2) != 0 ? box.max.y : box.min.y,
                      (corner & 4) != 0 ? box.max.z : box.min.z}));
  }
  return shown;
}

void show(DocumentState& document, const Box& box) {
  Drawing& drawing = document.drawing;
  const SpaceId space = current_space(document);
  if (box.empty()) return;
  std::optional<View> view = drawing.view(space);
  if (!view) return;
  const Box shown = displayed(*view, box);
  const double aspect = view->aspect > 0 ? view->aspect : 1;
  const double height = std::max(shown.max.y - shown.min.y, (shown.max.x - shown.min.x) / aspect);
  view->center = {(shown.min.x + shown.max.x) / 2, (shown.min.y + shown.max.y) / 2, 0};
  if (height > 0) view->height = height;
  drawing.write_view(space, *view);
}

std::optional<Box> box_of(const Drawing& drawing, RecordId id) {
  try {
    return drawing::extents(drawing, id);
  } catch (const drawing::Error&) {
    return std::nullopt;  // the others are shown
  }
}

Box extents_of(const DocumentState& document) {
  const Drawing& drawing = document.drawing;
  Box all;
  for (const RecordId id : drawing.entities(current_space(document))) {
    const drawing::LayerId layer = drawing.record(id).layer;
    if (layer != drawing::LayerId::none && drawing.layer(layer).frozen()) continue;
    if (const auto box = box_of(drawing, id)) all.add(*box);
  }
  return all;
}

}  // namespace

void zoom_window(DocumentState& document, Point corner, Point opposite) {
  Box box;
  box.add(corner);
  box.add(opposite);
  show(document, box);
}

void zoom_extents(DocumentState& document) { show(document, extents_of(document)); }

void zoom_all(DocumentState& document) {
  Box box = extents_of(document);
  const bool is_model = current_space(document) == SpaceId::model;
  const auto limits = is_model ? document.drawing.header_box("$LIMMIN", "$LIMMAX")
                               : document.drawing.header_box("$PLIMMIN", "$PLIMMAX");
  if (limits) box.add(*limits);
  show(document, box);
}

}  // namespace velmar::embedded
