#include <algorithm>
#include <array>
#include <deque>

#include "drawing/drawing.h"
#include "drawing/dxf/record_tags.h"
#include "drawing/store.h"

namespace velmar::drawing {
namespace {

/// Of a DIMENSION of R12, by the low bits of its group 70.
constexpr std::array<std::string_view, 7> dimension_classes{
    "AcDbRotatedDimension",   "AcDbAlignedDimension", "AcDb2LineAngularDimension",
    "AcDbDiametricDimension", "AcDbRadialDimension",  "AcDb3PointAngularDimension",
    "AcDbOrdinateDimension"};

std::int64_t flags_of(const dxf::RecordTags& record) {
  for (const dxf::Tag& tag : record.tags()) {
    if (tag.code == 70 && !tag.in_group) {
      return dxf::integer_value(record.bytes(), tag, record.format()).value_or(0);
    }
  }
  return 0;
}

std::string_view polyline_class(std::int64_t flags) {
  if ((flags & Polyline::polyface_flag) != 0) return "AcDbPolyFaceMesh";
  if ((flags & Polyline::mesh_flag) != 0) return "AcDbPolygonMesh";
  return (flags & Polyline::is_3d_flag) != 0 ? "AcDb3dPolyline" : "AcDb2dPolyline";
}

std::string last_marker(const dxf::RecordTags& record) {
  std::string marker;
  for (std::size_t i = 0; i < record.xdata(); ++i) {
    const dxf::Tag& tag = record.tags()[i];
    if (tag.code == 100 && !tag.in_group) marker = record.text(tag);
  }
  return marker;
}

/// Whether an INSERT has more than one column or row. Inserts are many: no list of tags is made.
bool is_array(std::string_view bytes, const dxf::Format& format) {
  dxf::TagCursor cursor(bytes, format);
  dxf::Tag tag;
  bool in_group = false;
  while (cursor.next(tag) && tag.code < 1000) {
    if (tag.code == 102) in_group = tag.text(bytes).starts_with('{');
    const bool counts = (tag.code == 70 || tag.code == 71) && !in_group;
    if (counts && dxf::integer_value(bytes, tag, format).value_or(0) > 1) return true;
  }
  return false;
}

/// The class of a record whose kind does not tell it.
std::string class_of(const Store& store, RecordId id) {
  const Record& entity = store.at(id);
  if (entity.kind == Kind::insert) {
    return is_array(store.bytes(id), store.format) ? "AcDbMInsertBlock" : "AcDbBlockReference";
  }
  const dxf::RecordTags record(store.bytes(id), store.format);
  if (entity.kind == Kind::polyline) return std::string(polyline_class(flags_of(record)));
  if (entity.kind == Kind::dimension && !record.has_markers()) {
    const auto type = static_cast<std::size_t>(flags_of(record) & 7);
    return std::string(dimension_classes[std::min(type, dimension_classes.size() - 1)]);
  }
  if (entity.kind == Kind::vertex && !record.has_markers()) return "AcDb2dVertex";
  const std::string marker = last_marker(record);
  return marker.empty() ? "AcDbEntity" : marker;
}

/// The number under which a class is remembered. Classes beyond any real number of them share the
/// last.
std::uint16_t number_of(std::deque<std::string>& names, const std::string& name) {
  constexpr std::size_t most = 1000;
  const auto known = std::find(names.begin(), names.end(), name);
  const auto number = static_cast<std::size_t>(known - names.begin()) + 1;
  if (number > most) return static_cast<std::uint16_t>(most);
  if (known == names.end()) names.push_back(name);
  return static_cast<std::uint16_t>(number);
}

}  // namespace

std::string_view Drawing::object_name(RecordId id) const {
  const Record& entity = store_->at(id);
  if (const std::string_view fixed = class_name(entity.kind); !fixed.empty()) return fixed;
  if (entity.class_number == 0) {
    entity.class_number = number_of(store_->class_names, class_of(*store_, id));
  }
  return store_->class_names[entity.class_number - 1u];
}

}  // namespace velmar::drawing
