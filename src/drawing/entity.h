#pragma once

#include <variant>

#include "drawing/entities/arc.h"
#include "drawing/entities/attdef.h"
#include "drawing/entities/attrib.h"
#include "drawing/entities/circle.h"
#include "drawing/entities/common.h"
#include "drawing/entities/dimension.h"
#include "drawing/entities/ellipse.h"
#include "drawing/entities/face.h"
#include "drawing/entities/hatch.h"
#include "drawing/entities/insert.h"
#include "drawing/entities/leader.h"
#include "drawing/entities/line.h"
#include "drawing/entities/lwpolyline.h"
#include "drawing/entities/mtext.h"
#include "drawing/entities/ole_frame.h"
#include "drawing/entities/point_mark.h"
#include "drawing/entities/polyline.h"
#include "drawing/entities/ray.h"
#include "drawing/entities/region.h"
#include "drawing/entities/solid.h"
#include "drawing/entities/spline.h"
#include "drawing/entities/text.h"
#include "drawing/entities/tolerance.h"

namespace velmar::drawing {

/// The body of a kind that is kept whole without being understood.
struct Opaque {};

template <class Fields>
void fields(Fields&, Opaque&) {}

/// One alternative for each kind that has fields.
using Body = std::variant<Opaque, Line, Arc, Circle, Ellipse, LwPolyline, Polyline, Text, Attrib,
                          Attdef, Insert, PointMark, MText, Tolerance, Hatch, Solid, Trace, Face,
                          Spline, Leader, Ray, Xline, OleFrame, Dimension, Region>;

struct Entity {
  Common common;
  Body body;
};

/// Whether `transform` does what it says: not of kinds that are kept whole without being
/// understood, of frames that would turn, of models whose placement is in no known form.
bool can_transform(const Body& body, const Matrix& matrix);
void transform(Body& body, const Matrix& matrix);

}  // namespace velmar::drawing
