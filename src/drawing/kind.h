#pragma once

#include <cstdint>
#include <string_view>

namespace velmar::drawing {

/// The kind of a record: the name after its group 0. Names that are not listed here get numbers
/// from `others` on, in each drawing's own Kinds.
enum class Kind : std::uint16_t {
  section,
  endsec,
  table,
  endtab,
  block,
  endblk,
  eof,
  cls,
  block_record,
  layer,
  ltype,
  style,
  dimstyle,
  appid,
  vport,
  view,
  ucs,
  dictionary,
  layout,
  vertex,
  seqend,
  attrib,
  line,
  arc,
  circle,
  ellipse,
  lwpolyline,
  polyline,
  text,
  insert,
  mtext,
  point,
  hatch,
  dimension,
  attdef,
  solid,
  trace,
  face3d,
  spline,
  leader,
  multileader,
  tolerance,
  region,
  solid3d,
  body,
  surface,
  ole2frame,
  oleframe,
  image,
  wipeout,
  viewport,
  mline,
  mesh,
  ray,
  xline,
  shape,
  arc_dimension,
  large_radial_dimension,
  acad_table,
  light,
  helix,
  pdfunderlay,
  dwfunderlay,
  dgnunderlay,
  proxy_entity,
  others,
};

/// The name after group 0, such as "LWPOLYLINE"; only of kinds listed above.
std::string_view kind_name(Kind kind);

/// The automation name (ObjectName) that all records of the kind have, such as "AcDbPolyline";
/// empty where it depends on the record (POLYLINE, INSERT, DIMENSION) or the kind is not listed.
std::string_view class_name(Kind kind);

}  // namespace velmar::drawing
