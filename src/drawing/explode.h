#pragma once

#include <vector>

#include "drawing/entity.h"

namespace velmar::drawing {

/// The segments of a polyline in the order of its way, the closing one included, as lines and arcs
/// with its thickness and normal. Widths are lost; segments without length and the frame of a
/// spline are left out. A 3D polyline becomes lines, a mesh nothing.
std::vector<Body> explode(const LwPolyline& polyline);
std::vector<Body> explode(const Polyline& polyline);

/// What an affine map makes of a body: one of its kind, or where that cannot hold the image,
/// others. Circles and arcs that are stretched unevenly become ellipses; polylines with arcs become
/// lines and parts of ellipses. Texts take what they can (see their transform). Empty where the map
/// is not the identity and the kind is not understood, or would make a block reference oblique.
std::vector<Body> images(const Body& body, const Matrix& matrix);

}  // namespace velmar::drawing
