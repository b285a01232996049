#include "drawing/convert/r12_kinds.h"

#include <algorithm>
#include <array>

namespace velmar::drawing {
namespace {

template <class... Codes>
constexpr auto codes(Codes... code) {
  return std::array<std::int16_t, sizeof...(Codes)>{static_cast<std::int16_t>(code)...};
}

constexpr auto line = codes(39, 10, 20, 30, 11, 21, 31, 210, 220, 230);
constexpr auto point = codes(39, 10, 20, 30, 210, 220, 230, 50);
constexpr auto circle = codes(39, 10, 20, 30, 40, 210, 220, 230);
constexpr auto angles = codes(50, 51);
constexpr auto four_points =
    codes(10, 20, 30, 11, 21, 31, 12, 22, 32, 13, 23, 33, 39, 210, 220, 230);
constexpr auto face = codes(10, 20, 30, 11, 21, 31, 12, 22, 32, 13, 23, 33, 70);
constexpr auto text =
    codes(39, 10, 20, 30, 40, 1, 50, 41, 51, 7, 71, 72, 11, 21, 31, 210, 220, 230);
constexpr auto vertical = codes(73);
constexpr auto attribute = codes(2, 70, 73, 74);
constexpr auto attribute_definition = codes(3, 2, 70, 73, 74);
constexpr auto shape = codes(39, 10, 20, 30, 40, 2, 50, 41, 51, 210, 220, 230);
constexpr auto insert = codes(66, 2, 10, 20, 30, 41, 42, 43, 50, 70, 71, 44, 45, 210, 220, 230);
constexpr auto polyline = codes(66, 10, 20, 30, 39, 70, 40, 41, 71, 72, 73, 74, 75, 210, 220, 230);
constexpr auto none = std::array<std::int16_t, 0>{};
constexpr auto vertex = codes(10, 20, 30, 40, 41, 42, 70, 50);
constexpr auto face_record = codes(10, 20, 30, 70, 71, 72, 73, 74);
constexpr auto dimension = codes(2, 10, 20, 30, 11, 21, 31, 70, 1, 3, 51, 53, 210, 220, 230);
constexpr auto linear = codes(12, 22, 32, 13, 23, 33, 14, 24, 34, 40, 50, 52);
constexpr auto angular = codes(13, 23, 33, 14, 24, 34, 15, 25, 35, 16, 26, 36);
constexpr auto radial = codes(15, 25, 35, 40);
constexpr auto block_begin = codes(2, 70, 10, 20, 30, 3, 1);
constexpr auto viewport = codes(10, 20, 30, 40, 41, 68, 69);

constexpr auto layer_row = codes(2, 70, 62, 6);
constexpr auto linetype_row = codes(2, 70, 3, 72, 73, 40, 49);
constexpr auto style_row = codes(2, 70, 40, 41, 50, 71, 42, 3, 4);
constexpr auto viewport_row =
    codes(2, 70, 10, 20, 11, 21, 12, 22, 13, 23, 14, 24, 15, 25, 16, 26, 36, 17, 27, 37, 40, 41, 42,
          43, 44, 50, 51, 71, 72, 73, 74, 75, 76, 77, 78);
constexpr auto view_row = codes(2, 70, 40, 10, 20, 41, 11, 21, 31, 12, 22, 32, 42, 43, 44, 50, 71);
constexpr auto ucs_row = codes(2, 70, 10, 20, 30, 11, 21, 31, 12, 22, 32);
constexpr auto application_row = codes(2, 70);
constexpr auto dimension_style_row =
    codes(2, 70, 3, 4, 5, 6, 7, 40, 41, 42, 43, 44, 45, 46, 47, 48, 140, 141, 142, 143, 144, 145,
          146, 147, 71, 72, 73, 74, 75, 76, 77, 78, 170, 171, 172, 173, 174, 175, 176, 177, 178);

constexpr std::array line_parts{R12Part{"AcDbLine", line}};
constexpr std::array point_parts{R12Part{"AcDbPoint", point}};
constexpr std::array circle_parts{R12Part{"AcDbCircle", circle}};
constexpr std::array arc_parts{R12Part{"AcDbCircle", circle}, R12Part{"AcDbArc", angles}};
constexpr std::array trace_parts{R12Part{"AcDbTrace", four_points}};
constexpr std::array face_parts{R12Part{"AcDbFace", face}};
constexpr std::array text_parts{R12Part{"AcDbText", text}, R12Part{"AcDbText", vertical}};
constexpr std::array attrib_parts{R12Part{"AcDbText", text}, R12Part{"AcDbAttribute", attribute}};
constexpr std::array attdef_parts{R12Part{"AcDbText", text},
                                  R12Part{"AcDbAttributeDefinition", attribute_definition}};
constexpr std::array shape_parts{R12Part{"AcDbShape", shape}};
constexpr std::array insert_parts{R12Part{"AcDbBlockReference", insert}};
constexpr std::array array_parts{R12Part{"AcDbMInsertBlock", insert}};
constexpr std::array polyline_2d{R12Part{"AcDb2dPolyline", polyline}};
constexpr std::array polyline_3d{R12Part{"AcDb3dPolyline", polyline}};
constexpr std::array polygon_mesh{R12Part{"AcDbPolygonMesh", polyline}};
constexpr std::array polyface_mesh{R12Part{"AcDbPolyFaceMesh", polyline}};
constexpr std::array vertex_2d{R12Part{"AcDbVertex", none}, R12Part{"AcDb2dVertex", vertex}};
constexpr std::array vertex_3d{R12Part{"AcDbVertex", none},
                               R12Part{"AcDb3dPolylineVertex", vertex}};
constexpr std::array mesh_vertex{R12Part{"AcDbVertex", none},
                                 R12Part{"AcDbPolygonMeshVertex", vertex}};
constexpr std::array polyface_vertex{R12Part{"AcDbVertex", none},
                                     R12Part{"AcDbPolyFaceMeshVertex", vertex}};
constexpr std::array polyface_record{R12Part{"AcDbFaceRecord", face_record}};
constexpr std::array rotated{R12Part{"AcDbDimension", dimension},
                             R12Part{"AcDbAlignedDimension", linear},
                             R12Part{"AcDbRotatedDimension", none}};
constexpr std::array aligned{R12Part{"AcDbDimension", dimension},
                             R12Part{"AcDbAlignedDimension", linear}};
constexpr std::array angular_lines{R12Part{"AcDbDimension", dimension},
                                   R12Part{"AcDb2LineAngularDimension", angular}};
constexpr std::array angular_points{R12Part{"AcDbDimension", dimension},
                                    R12Part{"AcDb3PointAngularDimension", angular}};
constexpr std::array diametric{R12Part{"AcDbDimension", dimension},
                               R12Part{"AcDbDiametricDimension", radial}};
constexpr std::array radius{R12Part{"AcDbDimension", dimension},
                            R12Part{"AcDbRadialDimension", radial}};
constexpr std::array ordinate{R12Part{"AcDbDimension", dimension},
                              R12Part{"AcDbOrdinateDimension", linear}};
constexpr std::array block_parts{R12Part{"AcDbBlockBegin", block_begin}};
constexpr std::array endblk_parts{R12Part{"AcDbBlockEnd", none}};
constexpr std::array viewport_parts{R12Part{"AcDbViewport", viewport}};
constexpr std::array layer_parts{R12Part{"AcDbLayerTableRecord", layer_row}};
constexpr std::array linetype_parts{R12Part{"AcDbLinetypeTableRecord", linetype_row}};
constexpr std::array style_parts{R12Part{"AcDbTextStyleTableRecord", style_row}};
constexpr std::array vport_parts{R12Part{"AcDbViewportTableRecord", viewport_row}};
constexpr std::array view_parts{R12Part{"AcDbViewTableRecord", view_row}};
constexpr std::array ucs_parts{R12Part{"AcDbUCSTableRecord", ucs_row}};
constexpr std::array application_parts{R12Part{"AcDbRegAppTableRecord", application_row}};
constexpr std::array dimstyle_parts{R12Part{"AcDbDimStyleTableRecord", dimension_style_row}};

using Parts = std::span<const R12Part>;

struct Row {
  std::string_view kind;
  Parts parts;
  bool is_entity = true;
};
constexpr std::array rows{Row{"LINE", line_parts},
                          Row{"POINT", point_parts},
                          Row{"CIRCLE", circle_parts},
                          Row{"ARC", arc_parts},
                          Row{"SOLID", trace_parts},
                          Row{"TRACE", trace_parts},
                          Row{"3DFACE", face_parts},
                          Row{"TEXT", text_parts},
                          Row{"ATTRIB", attrib_parts},
                          Row{"ATTDEF", attdef_parts},
                          Row{"SHAPE", shape_parts},
                          Row{"VIEWPORT", viewport_parts},
                          Row{"SEQEND", {}},
                          Row{"INSERT", insert_parts},
                          Row{"POLYLINE", polyline_2d},
                          Row{"VERTEX", vertex_2d},
                          Row{"DIMENSION", rotated},
                          Row{"BLOCK", block_parts, false},
                          Row{"ENDBLK", endblk_parts, false},
                          Row{"LAYER", layer_parts, false},
                          Row{"LTYPE", linetype_parts, false},
                          Row{"STYLE", style_parts, false},
                          Row{"VPORT", vport_parts, false},
                          Row{"VIEW", view_parts, false},
                          Row{"UCS", ucs_parts, false},
                          Row{"APPID", application_parts, false},
                          Row{"DIMSTYLE", dimstyle_parts, false}};

/// By the low bits of a DIMENSION's group 70.
constexpr std::array<Parts, 7> dimensions{rotated, aligned,        angular_lines, diametric,
                                          radius,  angular_points, ordinate};

Parts polyline_parts(std::int64_t flags) {
  if ((flags & 64) != 0) return polyface_mesh;
  if ((flags & 16) != 0) return polygon_mesh;
  return (flags & 8) != 0 ? Parts(polyline_3d) : Parts(polyline_2d);
}

Parts vertex_parts(const R12Flags& flags) {
  if ((flags.polyline & 64) != 0) {
    return (flags.own & 64) != 0 ? Parts(polyface_vertex) : Parts(polyface_record);
  }
  if ((flags.polyline & 16) != 0) return mesh_vertex;
  return (flags.polyline & 8) != 0 ? Parts(vertex_3d) : Parts(vertex_2d);
}

}  // namespace

std::span<const R12Part> r12_parts(std::string_view kind, const R12Flags& flags) {
  if (kind == "POLYLINE") return polyline_parts(flags.own);
  if (kind == "VERTEX") return vertex_parts(flags);
  if (kind == "INSERT" && flags.is_array) return array_parts;
  if (kind == "DIMENSION") {
    return dimensions[std::min(static_cast<std::size_t>(flags.own & 7), dimensions.size() - 1)];
  }
  const auto found = std::ranges::find(rows, kind, &Row::kind);
  return found == rows.end() ? Parts() : found->parts;
}

bool is_r12_kind(std::string_view kind) {
  const auto found = std::ranges::find(rows, kind, &Row::kind);
  return found != rows.end() && found->is_entity;
}

bool is_r12_code(std::string_view kind, int code) {
  const auto has = [&](Parts parts) {
    return std::ranges::any_of(parts, [&](const R12Part& part) {
      return std::ranges::find(part.codes, code) != part.codes.end();
    });
  };
  if (kind == "VERTEX") return has(vertex_2d) || has(polyface_record);
  if (kind == "DIMENSION") return std::ranges::any_of(dimensions, has);
  return has(r12_parts(kind));
}

bool is_r12_common(int code) { return code == 8 || code == 6 || code == 62 || code == 67; }

}  // namespace velmar::drawing
