#include <algorithm>
#include <array>

#include "drawing/drawing.h"
#include "drawing/dxf/field_reader.h"
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

bool is_array(const dxf::RecordTags& record) {
  Insert insert;
  dxf::FieldReader reader(record);
  fields(reader, insert);
  return insert.is_array();
}

}  // namespace

std::string Drawing::object_name(RecordId id) const {
  const Record& entity = store_->at(id);
  if (const std::string_view fixed = class_name(entity.kind); !fixed.empty()) {
    return std::string(fixed);
  }
  const dxf::RecordTags record(store_->bytes(id), store_->format);
  if (entity.kind == Kind::polyline) return std::string(polyline_class(flags_of(record)));
  if (entity.kind == Kind::insert) {
    return is_array(record) ? "AcDbMInsertBlock" : "AcDbBlockReference";
  }
  if (entity.kind == Kind::dimension && !record.has_markers()) {
    const auto type = static_cast<std::size_t>(flags_of(record) & 7);
    return std::string(dimension_classes[std::min(type, dimension_classes.size() - 1)]);
  }
  if (entity.kind == Kind::vertex && !record.has_markers()) return "AcDb2dVertex";
  const std::string marker = last_marker(record);
  return marker.empty() ? "AcDbEntity" : marker;
}

}  // namespace velmar::drawing
