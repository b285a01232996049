#include <cmath>
#include <cstdint>
#include <optional>

#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::Entity;
using host::Point;

/// A direction in plan, of length 1.
struct Direction {
  double x = 1, y = 0;
};

/// Of the dimension line; nothing for other kinds than rotated and aligned ones, and for an aligned
/// one that measures nothing.
std::optional<Direction> direction_of(const Entity& dimension) {
  if (const auto rotated = host::try_as<host::RotatedDimension>(dimension)) {
    const double angle = rotated->Rotation();
    return Direction{std::cos(angle), std::sin(angle)};
  }
  const auto aligned = host::try_as<host::AlignedDimension>(dimension);
  if (!aligned) return std::nullopt;
  const Point from = aligned->ExtLine1Point(), to = aligned->ExtLine2Point();
  const double length = std::hypot(to.x - from.x, to.y - from.y);
  if (length == 0) return std::nullopt;
  return Direction{(to.x - from.x) / length, (to.y - from.y) / length};
}

bool parallel(const Direction& a, const Direction& b) {
  constexpr double radians = 1e-9;
  return std::abs(a.x * b.y - a.y * b.x) <= radians;
}

/// The line of the base dimension.
struct BaseLine {
  Direction along;
  Point through;

  /// The point of the line beside `point`.
  Point beside(const Point& point) const {
    const Direction across{-along.y, along.x};
    const double offset = (through.x - point.x) * across.x + (through.y - point.y) * across.y;
    return {point.x + offset * across.x, point.y + offset * across.y, point.z};
  }
};

/// Puts the item's dimension line on the base line where it can lie there.
void align(host::ResumeNext& step, const BaseLine& base, const Entity& item) {
  std::optional<Direction> direction;
  step([&] { direction = direction_of(item); });
  if (!direction || !parallel(*direction, base.along)) return;

  const host::Dimension dimension(item.object());
  Point at;
  bool known = false;
  step([&] {
    at = base.beside(dimension.TextPosition());
    known = true;
  });
  if (!known) return;
  step([&] { dimension.TextMovement(host::DimensionTextMovement::line_moves_with_text); });
  step([&] { dimension.TextPosition(at); });
}

void align_chosen(host::ResumeNext& step, const BaseLine& base, const std::string& base_handle) {
  constexpr std::string_view set_name = "TEST_SSET2";
  host::SelectionSet chosen;
  std::int32_t count = 0;
  step([&] { chosen = selection_sets().Add(set_name); });
  step([&] { chosen.SelectOnScreen(); });
  step([&] { count = chosen.Count(); });
  for (std::int32_t i = 0; i < count; ++i) {
    Entity item;
    step([&] {
      const std::string handle = chosen.Item(i).Handle();
      if (handle != base_handle) item = active_document().HandleToObject(handle);
    });
    if (item.object()) align(step, base, item);
  }
  step([&] { selection_sets().Item(set_name).Delete(); });
}

}  // namespace

Empty Velmar16::AlignDimension() {
  host::ResumeNext step;
  Entity picked;
  step([&] { picked = utility().GetEntity(new_line("Select Base Dimension")); });
  if (step.pending()) return {};
  step([&] { picked.Update(); });

  std::string handle;
  std::optional<Direction> along;
  Point through;
  bool is_base = false;
  step([&] {
    handle = picked.Handle();
    const auto base = entity<host::Dimension>(handle);
    along = direction_of(base);
    through = base.TextPosition();
    is_base = along.has_value();
  });
  if (is_base) align_chosen(step, {*along, through}, handle);
  step([&] { utility().Prompt(new_line(autocad_ready)); });
  return {};
}

}  // namespace velmar
