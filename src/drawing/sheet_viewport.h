#pragma once

#include "drawing/drawing.h"

namespace velmar::drawing {

/// The VIEWPORT that shows a sheet as a whole: number 1, else the first, as sheets that were not in
/// use when the file was written number none. None where the sheet has no viewport yet.
RecordId sheet_viewport(const Drawing& drawing, SpaceId sheet);

}  // namespace velmar::drawing
