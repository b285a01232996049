#include "drawing/kind_bodies.h"

#include <array>
#include <cstddef>

namespace velmar::drawing {
namespace {

using Make = Body (*)();

template <class Shape>
Body make() {
  return Shape{};
}

struct BodyRow {
  Kind kind;
  Make make_body;
};

/// One row for each kind with fields.
constexpr std::array body_rows{
    BodyRow{Kind::line, make<Line>},
    BodyRow{Kind::arc, make<Arc>},
    BodyRow{Kind::circle, make<Circle>},
    BodyRow{Kind::ellipse, make<Ellipse>},
    BodyRow{Kind::lwpolyline, make<LwPolyline>},
    BodyRow{Kind::polyline, make<Polyline>},
    BodyRow{Kind::text, make<Text>},
    BodyRow{Kind::attrib, make<Attrib>},
    BodyRow{Kind::attdef, make<Attdef>},
    BodyRow{Kind::insert, make<Insert>},
    BodyRow{Kind::point, make<PointMark>},
    BodyRow{Kind::mtext, make<MText>},
    BodyRow{Kind::tolerance, make<Tolerance>},
    BodyRow{Kind::hatch, make<Hatch>},
    BodyRow{Kind::solid, make<Solid>},
    BodyRow{Kind::trace, make<Trace>},
    BodyRow{Kind::face3d, make<Face>},
    BodyRow{Kind::spline, make<Spline>},
    BodyRow{Kind::leader, make<Leader>},
    BodyRow{Kind::ray, make<Ray>},
    BodyRow{Kind::xline, make<Xline>},
    BodyRow{Kind::ole2frame, make<OleFrame>},
    BodyRow{Kind::dimension, make<Dimension>},
    BodyRow{Kind::region, make<Region>},
};
static_assert(body_rows.size() + 1 == std::variant_size_v<Body>, "all but Opaque");

constexpr auto makers = [] {
  std::array<Make, static_cast<std::size_t>(Kind::others)> by_kind{};
  for (const BodyRow& row : body_rows) by_kind[static_cast<std::size_t>(row.kind)] = row.make_body;
  return by_kind;
}();

/// The names of the records by the alternative of the body.
const auto& record_names() {
  static const auto names = [] {
    std::array<std::string_view, std::variant_size_v<Body>> by_index{};
    for (const BodyRow& row : body_rows) by_index[row.make_body().index()] = kind_name(row.kind);
    return by_index;
  }();
  return names;
}

}  // namespace

Body empty_body(Kind kind) {
  const auto number = static_cast<std::size_t>(kind);
  return number < makers.size() && makers[number] ? makers[number]() : Opaque{};
}

NewRecord new_record(const Body& body) {
  if (std::holds_alternative<Region>(body)) return {};
  NewRecord record{record_names()[body.index()]};
  if (const auto* polyline = std::get_if<Polyline>(&body)) {
    record.marker = polyline->is_2d() ? "AcDb2dPolyline" : "AcDb3dPolyline";
  }
  if (const auto* insert = std::get_if<Insert>(&body)) {
    record.marker = insert->is_array() ? "AcDbMInsertBlock" : "AcDbBlockReference";
  }
  return record;
}

}  // namespace velmar::drawing
