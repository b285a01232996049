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

struct Row {
  Kind kind;
  Make make_body;
};

/// One row for each kind with fields.
constexpr std::array rows{
    Row{Kind::line, make<Line>},
    Row{Kind::arc, make<Arc>},
    Row{Kind::circle, make<Circle>},
    Row{Kind::ellipse, make<Ellipse>},
    Row{Kind::lwpolyline, make<LwPolyline>},
    Row{Kind::polyline, make<Polyline>},
    Row{Kind::text, make<Text>},
    Row{Kind::attrib, make<Attrib>},
    Row{Kind::attdef, make<Attdef>},
    Row{Kind::insert, make<Insert>},
    Row{Kind::point, make<PointMark>},
    Row{Kind::mtext, make<MText>},
    Row{Kind::tolerance, make<Tolerance>},
    Row{Kind::hatch, make<Hatch>},
    Row{Kind::solid, make<Solid>},
    Row{Kind::trace, make<Trace>},
    Row{Kind::face3d, make<Face>},
    Row{Kind::spline, make<Spline>},
    Row{Kind::leader, make<Leader>},
    Row{Kind::ray, make<Ray>},
    Row{Kind::xline, make<Xline>},
    Row{Kind::ole2frame, make<OleFrame>},
    Row{Kind::dimension, make<Dimension>},
    Row{Kind::region, make<Region>},
};
static_assert(rows.size() + 1 == std::variant_size_v<Body>, "all but Opaque");

constexpr auto makers = [] {
  std::array<Make, static_cast<std::size_t>(Kind::others)> by_kind{};
  for (const Row& row : rows) by_kind[static_cast<std::size_t>(row.kind)] = row.make_body;
  return by_kind;
}();

/// The names of the records by the alternative of the body.
const auto& record_names() {
  static const auto names = [] {
    std::array<std::string_view, std::variant_size_v<Body>> by_index{};
    for (const Row& row : rows) by_index[row.make_body().index()] = kind_name(row.kind);
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
