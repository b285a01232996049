#include <cmath>
#include <string>

#include "basic/rounding.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::Entity;
using host::LightweightPolyline;
using host::Point;
using host::ResumeNext;

/// False when nothing was picked.
bool pick_layer(ResumeNext& step, std::string& layer) {
  Entity picked;
  step([&] { picked = utility().GetEntity(new_line("Select Layer")); });
  if (step.pending()) return false;
  step([&] { picked.Update(); });
  step([&] { layer = picked.Layer(); });
  return true;
}

/// Does `act` with the handle of each lightweight polyline on that layer.
template <class Act>
void for_each_polyline(ResumeNext& step, const std::string& layer, Act act) {
  step([&] {
    for (const Entity& candidate : model_space()) {
      std::string handle;
      step([&] {
        if (!candidate.has_class(LightweightPolyline::class_name)) return;
        if (candidate.is_on(layer)) handle = candidate.Handle();
      });
      if (!handle.empty()) act(handle);
    }
  });
}

/// Nothing when the user did not pick both points.
std::optional<double> picked_offset() {
  const std::optional<Point> first =
      host::attempt([] { return utility().GetPoint(new_line("First point: ")); });
  if (!first) return std::nullopt;
  const std::optional<Point> second =
      host::attempt([&] { return utility().GetPoint(*first, new_line("Second point: ")); });
  if (!second) return std::nullopt;
  const double dx = second->x - first->x, dy = second->y - first->y;
  const bool is_backward = dx != 0 ? dx < 0 : dy < 0;
  const double distance = basic::round(std::hypot(dx, dy));
  return is_backward ? -distance : distance;
}

void dimension(Velmar16& velmar, const Point& from, const Point& to, double offset) {
  Value from_x = from.x, from_y = from.y, to_x = to.x;
  double to_y = to.y;
  std::string no_style;
  bool kept_as_dimension = true;
  velmar.DimAL(from_x, from_y, to_x, to_y, no_style, kept_as_dimension, offset);
}

/// Along the top and the right edge of its box.
void dimension_box(Velmar16& velmar, ResumeNext& step, const std::string& handle, double offset) {
  bool is_closed = false;
  step([&] { is_closed = entity<LightweightPolyline>(handle).Closed(); });
  if (!is_closed) return;
  step([&] {
    Value measured = handle;
    std::string lightweight_polyline = "PLW";
    velmar.GetBRec(measured, lightweight_polyline);
  });
  Point min, max;
  bool has_box = false;
  step([&] {
    min = host::to_point(velmar.BoxMinPoint);
    max = host::to_point(velmar.BoxMaxPoint);
    has_box = true;
  });
  if (!has_box) return;
  step([&] { dimension(velmar, {min.x, max.y, 0}, {max.x, max.y, 0}, offset); });
  step([&] { dimension(velmar, {max.x, min.y, 0}, {max.x, max.y, 0}, offset); });
}

}  // namespace

Empty Velmar16::Hatch_Layer(std::string& LayerName) {
  ResumeNext step;
  if (!pick_layer(step, LayerName)) return {};
  for_each_polyline(step, LayerName,
                    [&](std::string& handle) { step([&] { HatchAligned(handle); }); });
  step([] { active_document().Regen(host::Viewports::active); });
  step([] { utility().Prompt(autocad_ready); });
  return {};
}

Empty Velmar16::Dim_Layer(std::string& LayerName) {
  ResumeNext step;
  if (!pick_layer(step, LayerName)) return {};
  const std::optional<double> offset = picked_offset();
  if (!offset) return {};
  for_each_polyline(step, LayerName, [&](const std::string& handle) {
    dimension_box(*this, step, handle, *offset);
  });
  step([] { utility().Prompt(autocad_ready); });
  return {};
}

}  // namespace velmar
