#include <array>
#include <string>

#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

using host::Point;

/// A text or a tolerance: its insertion point is put to z 0.
template <class T>
void flatten_at_insertion(Velmar16&, const std::string& handle) {
  const T flattened = entity<T>(handle);
  const Point at = flattened.InsertionPoint();
  if (at.z != 0) flattened.InsertionPoint({at.x, at.y, 0});
}

void flatten_line(Velmar16&, const std::string& handle) {
  const host::Line line = entity<host::Line>(handle);
  if (const Point start = line.StartPoint(); start.z != 0) {
    line.StartPoint({start.x, start.y, 0});
    line.Update();
  }
  if (const Point end = line.EndPoint(); end.z != 0) {
    line.EndPoint({end.x, end.y, 0});
    line.Update();
  }
}

template <class T>
void flatten_elevation(Velmar16&, const std::string& handle) {
  entity<T>(handle).Elevation(0);
}

void move_down(Velmar16& velmar, std::string handle, double z) {
  if (z == 0) return;
  double none = 0, down = -z;
  bool vertical = false;
  velmar.OMove(handle, none, vertical, none, down);
}

template <class T>
void move_by_center(Velmar16& velmar, const std::string& handle) {
  move_down(velmar, handle, entity<T>(handle).Center().z);
}

void move_by_insertion(Velmar16& velmar, const std::string& handle) {
  move_down(velmar, handle, entity<host::BlockReference>(handle).InsertionPoint().z);
}

void move_by_top(Velmar16& velmar, const std::string& handle) {
  move_down(velmar, handle, entity<host::Region>(handle).GetBoundingBox().max.z);
}

struct Flattened {
  std::string_view class_name;
  void (*flatten)(Velmar16& velmar, const std::string& handle);
};

constexpr Flattened kinds[] = {
    {host::Text::class_name, flatten_at_insertion<host::Text>},
    {host::Line::class_name, flatten_line},
    {host::Circle::class_name, move_by_center<host::Circle>},
    {host::Arc::class_name, move_by_center<host::Arc>},
    {host::Ellipse::class_name, move_by_center<host::Ellipse>},
    {host::Tolerance::class_name, flatten_at_insertion<host::Tolerance>},
    {host::LightweightPolyline::class_name, flatten_elevation<host::LightweightPolyline>},
    {host::HeavyPolyline::class_name, flatten_elevation<host::HeavyPolyline>},
    {host::Hatch::class_name, flatten_elevation<host::Hatch>},
    {host::BlockReference::class_name, move_by_insertion},
    {host::Region::class_name, move_by_top},
};

}  // namespace

Empty Velmar16::Alignement() {
  for (const host::Entity& candidate : model_space()) {
    const std::string class_name = candidate.ObjectName();
    for (const Flattened& kind : kinds) {
      if (class_name == kind.class_name) kind.flatten(*this, candidate.Handle());
    }
  }
  return {};
}

}  // namespace velmar
