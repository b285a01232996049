#pragma once

#include <string>

#include "basic/value.h"
#include "drawing/drawing.h"

namespace velmar::embedded {

/// Extended data as two lists of the same length: group codes (16-bit) and values. A point is one
/// value (codes 1010 to 1013); binary data (1004) is hexadecimal text.
struct XData {
  basic::List types, values;
};

/// The data of one application (by name, regardless of case), or of all where the name is empty.
XData read_xdata(const drawing::Drawing& drawing, drawing::RecordId id,
                 std::string_view application);
/// Replaces the data of the applications named by the 1001 groups; the first group must be one.
/// Invalid input for groups that extended data cannot have or lists of different lengths.
void write_xdata(drawing::Drawing& drawing, drawing::RecordId id, const basic::Value& types,
                 const basic::Value& values);

}  // namespace velmar::embedded
