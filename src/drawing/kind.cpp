#include "drawing/kind.h"

#include <array>
#include <cstddef>

namespace velmar::drawing {
namespace {

struct KindRow {
  Kind kind;
  std::string_view name;
  std::string_view class_name = {};
};

// In the order of the enumeration.
constexpr std::array<KindRow, static_cast<std::size_t>(Kind::others)> kind_rows{{
    {Kind::section, "SECTION"},
    {Kind::endsec, "ENDSEC"},
    {Kind::table, "TABLE"},
    {Kind::endtab, "ENDTAB"},
    {Kind::block, "BLOCK", "AcDbBlockBegin"},
    {Kind::endblk, "ENDBLK", "AcDbBlockEnd"},
    {Kind::eof, "EOF"},
    {Kind::cls, "CLASS"},
    {Kind::block_record, "BLOCK_RECORD", "AcDbBlockTableRecord"},
    {Kind::layer, "LAYER", "AcDbLayerTableRecord"},
    {Kind::ltype, "LTYPE", "AcDbLinetypeTableRecord"},
    {Kind::style, "STYLE", "AcDbTextStyleTableRecord"},
    {Kind::dimstyle, "DIMSTYLE", "AcDbDimStyleTableRecord"},
    {Kind::appid, "APPID", "AcDbRegAppTableRecord"},
    {Kind::vport, "VPORT", "AcDbViewportTableRecord"},
    {Kind::view, "VIEW", "AcDbViewTableRecord"},
    {Kind::ucs, "UCS", "AcDbUCSTableRecord"},
    {Kind::dictionary, "DICTIONARY", "AcDbDictionary"},
    {Kind::layout, "LAYOUT", "AcDbLayout"},
    {Kind::vertex, "VERTEX"},
    {Kind::seqend, "SEQEND", "AcDbSequenceEnd"},
    {Kind::attrib, "ATTRIB", "AcDbAttribute"},
    {Kind::line, "LINE", "AcDbLine"},
    {Kind::arc, "ARC", "AcDbArc"},
    {Kind::circle, "CIRCLE", "AcDbCircle"},
    {Kind::ellipse, "ELLIPSE", "AcDbEllipse"},
    {Kind::lwpolyline, "LWPOLYLINE", "AcDbPolyline"},
    {Kind::polyline, "POLYLINE"},
    {Kind::text, "TEXT", "AcDbText"},
    {Kind::insert, "INSERT"},
    {Kind::mtext, "MTEXT", "AcDbMText"},
    {Kind::point, "POINT", "AcDbPoint"},
    {Kind::hatch, "HATCH", "AcDbHatch"},
    {Kind::dimension, "DIMENSION"},
    {Kind::attdef, "ATTDEF", "AcDbAttributeDefinition"},
    {Kind::solid, "SOLID", "AcDbSolid"},
    {Kind::trace, "TRACE", "AcDbTrace"},
    {Kind::face3d, "3DFACE", "AcDbFace"},
    {Kind::spline, "SPLINE", "AcDbSpline"},
    {Kind::leader, "LEADER", "AcDbLeader"},
    {Kind::multileader, "MULTILEADER", "AcDbMLeader"},
    {Kind::tolerance, "TOLERANCE", "AcDbFcf"},
    {Kind::region, "REGION", "AcDbRegion"},
    {Kind::solid3d, "3DSOLID", "AcDb3dSolid"},
    {Kind::body, "BODY", "AcDbBody"},
    {Kind::surface, "SURFACE", "AcDbSurface"},
    {Kind::ole2frame, "OLE2FRAME", "AcDbOle2Frame"},
    {Kind::oleframe, "OLEFRAME", "AcDbOleFrame"},
    {Kind::image, "IMAGE", "AcDbRasterImage"},
    {Kind::wipeout, "WIPEOUT", "AcDbWipeout"},
    {Kind::viewport, "VIEWPORT", "AcDbViewport"},
    {Kind::mline, "MLINE", "AcDbMline"},
    {Kind::mesh, "MESH", "AcDbSubDMesh"},
    {Kind::ray, "RAY", "AcDbRay"},
    {Kind::xline, "XLINE", "AcDbXline"},
    {Kind::shape, "SHAPE", "AcDbShape"},
    {Kind::arc_dimension, "ARC_DIMENSION", "AcDbArcDimension"},
    {Kind::large_radial_dimension, "LARGE_RADIAL_DIMENSION", "AcDbRadialDimensionLarge"},
    {Kind::acad_table, "ACAD_TABLE", "AcDbTable"},
    {Kind::light, "LIGHT", "AcDbLight"},
    {Kind::helix, "HELIX", "AcDbHelix"},
    {Kind::pdfunderlay, "PDFUNDERLAY", "AcDbPdfReference"},
    {Kind::dwfunderlay, "DWFUNDERLAY", "AcDbDwfReference"},
    {Kind::dgnunderlay, "DGNUNDERLAY", "AcDbDgnReference"},
    {Kind::proxy_entity, "ACAD_PROXY_ENTITY", "AcDbProxyEntity"},
}};

constexpr bool in_order() {
  for (std::size_t i = 0; i < kind_rows.size(); ++i) {
    if (static_cast<std::size_t>(kind_rows[i].kind) != i) return false;
  }
  return true;
}
static_assert(in_order());

}  // namespace

std::string_view kind_name(Kind kind) { return kind_rows.at(static_cast<std::size_t>(kind)).name; }

std::string_view class_name(Kind kind) {
  return kind < Kind::others ? kind_rows[static_cast<std::size_t>(kind)].class_name
                             : std::string_view();
}

}  // namespace velmar::drawing
