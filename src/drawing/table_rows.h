#pragma once

#include <string_view>

#include "drawing/store.h"

namespace velmar::drawing {

/// Adds a row at the end of a table ("LAYER", class "AcDbLayerTableRecord"): a copy of the table's
/// first row, so that what rows name besides (plot style, material) is there too, or a bare one in
/// an empty table. Its own values are for the caller to write. None where the file has no such
/// table.
RecordId add_table_row(Store& store, std::string_view table, std::string_view row_class);

}  // namespace velmar::drawing
