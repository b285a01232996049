#pragma once

#include "drawing/store.h"

namespace velmar::drawing::dxf {

/// Fills a store whose source and name are set: finds the records, the tables, blocks and layouts,
/// and where each entity is drawn. Fails with Error where the bytes are no DXF.
void load(Store& store);

}  // namespace velmar::drawing::dxf
