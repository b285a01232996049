#include "drawing/convert/newer_values.h"

#include <algorithm>
#include <array>

#include "drawing/color_index.h"
#include "drawing/convert/release.h"

namespace velmar::drawing {
namespace {

struct KindSince {
  std::string_view kind, version;
  bool is_setting = false;
};
constexpr auto kinds = std::to_array<KindSince>({
    {"ACAD_TABLE", r2004},
    {"ARC_DIMENSION", r2004},
    {"LARGE_RADIAL_DIMENSION", r2004},
    {"TABLESTYLE", r2004, true},
    {"DBCOLOR", r2004},
    {"FIELD", r2004},
    {"FIELDLIST", r2004, true},
    {"MULTILEADER", r2007},
    {"MLEADERSTYLE", r2007, true},
    {"VISUALSTYLE", r2007, true},
    {"MATERIAL", r2007, true},
    {"SCALE", r2007, true},
    {"SUN", r2007, true},
    {"LIGHT", r2007},
    {"HELIX", r2007},
    {"SURFACE", r2007},
    {"EXTRUDEDSURFACE", r2007},
    {"LOFTEDSURFACE", r2007},
    {"REVOLVEDSURFACE", r2007},
    {"SWEPTSURFACE", r2007},
    {"PLANESURFACE", r2007},
    {"SECTIONOBJECT", r2007},
    {"CAMERA", r2007},
    {"DWFUNDERLAY", r2007},
    {"DWFDEFINITION", r2007},
    {"DGNUNDERLAY", r2007},
    {"DGNDEFINITION", r2007},
    {"MENTALRAYRENDERSETTINGS", r2007, true},
    {"RENDERENVIRONMENT", r2007, true},
    {"RENDERGLOBAL", r2007, true},
    {"PDFUNDERLAY", r2010},
    {"PDFDEFINITION", r2010},
    {"MESH", r2010},
    {"NURBSURFACE", r2010},
    {"GEODATA", r2010},
    {"CELLSTYLEMAP", r2010, true},
    {"TABLECONTENT", r2010, true},
    {"TABLEGEOMETRY", r2010, true},
    {"ACDBDETAILVIEWSTYLE", r2013, true},
    {"ACDBSECTIONVIEWSTYLE", r2013, true},
});

/// Solid models are text up to 2010 and binary data of another section since 2013.
constexpr auto solids = std::to_array<std::string_view>(
    {"3DSOLID", "BODY", "REGION", "SURFACE", "EXTRUDEDSURFACE", "LOFTEDSURFACE", "NURBSURFACE",
     "PLANESURFACE", "REVOLVEDSURFACE", "SWEPTSURFACE"});

/// Group codes of a subclass that came with a version. What is lost by taking them out; nothing
/// that is drawn where that is empty.
struct ValuesSince {
  std::string_view subclass;
  int first, last;
  std::string_view version, loss, outcome = "dropped";
};
constexpr auto values = std::to_array<ValuesSince>({
    {"AcDbEntity", 420, 439, r2004, "true colours", "nearest index"},
    {"AcDbEntity", 440, 449, r2004, "transparencies"},
    {"AcDbEntity", 347, 347, r2007, "materials"},
    {"AcDbEntity", 348, 348, r2007, ""},
    {"AcDbEntity", 284, 284, r2007, ""},
    {"AcDbLayerTableRecord", 420, 439, r2004, "true colours", "nearest index"},
    {"AcDbLayerTableRecord", 347, 347, r2007, ""},
    {"AcDbLayerTableRecord", 348, 348, r2010, ""},
    {"AcDbBlockTableRecord", 70, 70, r2007, ""},
    {"AcDbBlockTableRecord", 280, 281, r2007, ""},
    {"AcDbViewportTableRecord", 60, 63, r2007, ""},
    {"AcDbViewportTableRecord", 141, 142, r2007, ""},
    {"AcDbViewportTableRecord", 282, 282, r2007, ""},
    {"AcDbViewportTableRecord", 292, 292, r2007, ""},
    {"AcDbViewportTableRecord", 348, 361, r2007, ""},
    {"AcDbViewportTableRecord", 421, 431, r2007, ""},
    {"AcDbViewport", 61, 63, r2007, ""},
    {"AcDbViewport", 141, 142, r2007, ""},
    {"AcDbViewport", 170, 170, r2004, ""},
    {"AcDbViewport", 282, 282, r2007, ""},
    {"AcDbViewport", 292, 292, r2007, ""},
    {"AcDbViewport", 348, 348, r2007, ""},
    {"AcDbViewport", 361, 361, r2007, ""},
    {"AcDbViewport", 421, 431, r2007, ""},
    {"AcDbPlotSettings", 76, 78, r2004, ""},
    {"AcDbPlotSettings", 333, 333, r2004, ""},
    {"AcDbDimStyleTableRecord", 49, 50, r2007, ""},
    {"AcDbDimStyleTableRecord", 69, 69, r2007, ""},
    {"AcDbDimStyleTableRecord", 90, 90, r2007, ""},
    {"AcDbDimStyleTableRecord", 290, 290, r2007, ""},
    {"AcDbDimStyleTableRecord", 294, 294, r2010, ""},
    {"AcDbDimStyleTableRecord", 345, 347, r2007, ""},
    {"AcDbMText", 45, 45, r2004, ""},
    {"AcDbMText", 63, 63, r2004, "backgrounds of multiline texts"},
    {"AcDbMText", 90, 90, r2004, ""},
    {"AcDbMText", 420, 449, r2004, ""},
    {"AcDbHatch", 450, 470, r2004, "colour gradients", "one colour"},
    {"AcDb3dSolid", 350, 350, r2007, ""},
    {"AcDbDimension", 280, 280, r2010, ""},
    {"AcDbAttribute", 280, 280, r2010, ""},
    {"AcDbAttributeDefinition", 280, 280, r2010, ""},
});

bool is_lost(const ValuesSince& row, const TagValue& tag) {
  if (row.loss.empty()) return false;
  if (row.first == 440) return is_transparent(tag);
  if (row.subclass != "AcDbHatch") return tag.code == row.first;
  const auto* const kind = std::get_if<std::int64_t>(&tag.value);
  return tag.code == 450 && kind != nullptr && *kind != 0;
}

/// Since 2010 an edge that is a spline tells its fit points, also where it has none.
void drop_fit_points(Tags& tags) {
  constexpr std::array<int, 7> of_fit{97, 11, 21, 12, 22, 13, 23};
  Tags kept;
  bool in_spline = false, in_fit = false;
  for (std::size_t i = 0; i < tags.size(); ++i) {
    const int code = tags[i].code;
    const auto* const number = std::get_if<std::int64_t>(&tags[i].value);
    if (in_fit && code != 97 && std::ranges::find(of_fit, code) != of_fit.end()) continue;
    in_fit = false;
    if (code == 97 && in_spline) {
      in_spline = false;
      const int next = i + 1 < tags.size() ? tags[i + 1].code : 0;
      in_fit = next == 11 || next == 12 || next == 72 || next == 97;
      if (in_fit) continue;
    }
    if (code == 72)
      in_spline =
          number != nullptr && *number == 4 && i + 1 < tags.size() && tags[i + 1].code == 94;
    kept.push_back(tags[i]);
  }
  tags = std::move(kept);
}

/// What stands behind group 101 repeats the text for newer programs, and has its columns.
void drop_embedded(TagRecord& record, LossList& losses) {
  const auto begin = std::ranges::find(record.tags, 101, &TagValue::code);
  if (begin == record.tags.end()) return;
  const auto end = record.tags.begin() + static_cast<std::ptrdiff_t>(xdata_of(record.tags));
  const bool has_columns = std::any_of(begin, end, [](const TagValue& tag) {
    const auto* const type = std::get_if<std::int64_t>(&tag.value);
    return tag.code == 71 && type != nullptr && *type != 0;
  });
  if (has_columns && record.is("MTEXT")) {
    losses.add("columns of multiline texts", "one column", record.handle);
  } else if (!record.is("MTEXT")) {
    losses.add("attributes of several lines", "one line", record.handle);
  }
  record.tags.erase(begin, end);
}

/// Of other records a group 420 means something else, or nothing in older ones.
bool takes_colour(const TagRecord& record) {
  const TagValue* const marker = find_tag(record.tags, 100);
  if (marker == nullptr) return false;
  const auto* const name = std::get_if<std::string>(&marker->value);
  return record.is("LAYER") || (name != nullptr && *name == "AcDbEntity" && !record.is("MTEXT"));
}

}  // namespace

std::string_view first_version_of_kind(std::string_view kind) {
  const auto found = std::ranges::find(kinds, kind, &KindSince::kind);
  return found == kinds.end() ? r2000 : found->version;
}

bool is_setting(std::string_view kind) {
  const auto found = std::ranges::find(kinds, kind, &KindSince::kind);
  return found != kinds.end() && found->is_setting;
}

bool is_solid_model(std::string_view kind) {
  return std::ranges::find(solids, kind) != solids.end();
}

bool is_transparent(const TagValue& tag) {
  constexpr std::int64_t has_alpha = 0x02000000, alpha = 0xFF;
  const auto* const value = std::get_if<std::int64_t>(&tag.value);
  return value != nullptr && (*value & has_alpha) != 0 && (*value & alpha) != alpha;
}

void name_nearest_index(TagRecord& record) {
  const auto end = record.tags.begin() + static_cast<std::ptrdiff_t>(xdata_of(record.tags));
  const auto colour = std::find_if(record.tags.begin(), end, [](const TagValue& tag) {
    return tag.code == 420 && std::holds_alternative<std::int64_t>(tag.value);
  });
  if (colour == end || find_tag(record.tags, 62) != nullptr) return;
  const auto rgb = static_cast<std::int32_t>(std::get<std::int64_t>(colour->value));
  insert_tag(record.tags, static_cast<std::size_t>(colour - record.tags.begin()),
             {62, std::int64_t{nearest_index(rgb)}});
}

void drop_newer_values(TagRecord& record, std::string_view version, LossList& losses) {
  if (version < r2018) drop_embedded(record, losses);
  if (version < r2004 && takes_colour(record)) name_nearest_index(record);
  if (version < r2010 && record.is("HATCH")) drop_fit_points(record.tags);
  std::string subclass;
  bool in_group = false;
  std::erase_if(record.tags, [&](const TagValue& tag) {
    if (tag.code >= 1000) return false;
    const auto* const text = std::get_if<std::string>(&tag.value);
    if (tag.code == 102) in_group = text != nullptr && text->starts_with('{');
    if (tag.code == 100 && text != nullptr) subclass = *text;
    if (in_group || tag.code == 102 || tag.code == 100) return false;
    for (const ValuesSince& row : values) {
      if (row.version <= version || row.subclass != subclass) continue;
      if (tag.code < row.first || tag.code > row.last) continue;
      if (is_lost(row, tag)) losses.add(row.loss, row.outcome, record.handle);
      return true;
    }
    return false;
  });
}

}  // namespace velmar::drawing
