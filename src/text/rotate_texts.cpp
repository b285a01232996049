#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

using host::Entity;

/// Of the box that GetBRec left.
host::Point middle_of_box(Velmar16& velmar) {
  const host::Point min = host::to_point(velmar.BoxMinPoint);
  const host::Point max = host::to_point(velmar.BoxMaxPoint);
  Value min_x = min.x, min_y = min.y, max_x = max.x, max_y = max.y;
  return {velmar.Avr(min_x, max_x), velmar.Avr(min_y, max_y), 0};
}

double degrees(double radians) { return radians / radians_per_degree; }

}  // namespace

Empty Velmar16::RotateAllText(std::string LayerName, double RotatValue, bool& ALLT) {
  double picked_at = 0, entered = 0;
  if (!ALLT) {
    const Entity picked = utility().GetEntity(new_line("Select one of Text you Want Rotate "));
    picked.Update();
    const auto text = entity<host::Text>(picked.Handle());
    picked_at = degrees(text.Rotation());
    LayerName = text.Layer();
    if (text.TextString() == "ALL") ALLT = true;
    entered = utility().GetReal(new_line("Enter Rotation Angle: "));
  }
  const double angle = (RotatValue != 0 ? RotatValue : entered) * radians_per_degree;

  std::string single_line_text = "T";
  for (const Entity& candidate : model_space()) {
    if (!candidate.has_class(host::Text::class_name) || !candidate.is_on(LayerName)) continue;
    const auto text = entity<host::Text>(candidate.Handle());
    if (!ALLT && degrees(text.Rotation()) != picked_at) continue;
    Value handle = text.Handle();
    GetBRec(handle, single_line_text);
    text.Rotate(middle_of_box(*this), angle);
  }
  utility().Prompt(autocad_ready);
  return {};
}

}  // namespace velmar
