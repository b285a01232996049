#pragma once

#include <string>
#include <utility>
#include <vector>

#include "drawing/dimension/variables.h"

namespace velmar::drawing {

/// The value of a dimension variable as extended data holds it: 1000 a text, 1005 a handle, 1040 a
/// real number, 1070 an integer.
struct Override {
  int variable = 0;  // the group code that it has in the DIMSTYLE table
  int code = 0;
  std::string value;
  friend bool operator==(const Override&, const Override&) = default;
};
using Overrides = std::vector<Override>;

/// As Drawing::read_xdata gives it.
using ExtendedData = std::vector<std::pair<int, std::string>>;

/// What the data of "ACAD" says under DSTYLE.
Overrides overrides_in(const ExtendedData& data);
/// The data of "ACAD" with these in their place, everything else in it as it was.
ExtendedData with_overrides(const ExtendedData& data, const Overrides& overrides);

/// Variables that are kept as they are (the fields of the list) get the values of their overrides.
void take_overrides(const Overrides& overrides, DimVariables& variables);
/// Those of these variables that differ, as overrides.
Overrides differences(const DimVariables& from, const DimVariables& to);
/// Sets one, in the place where it stands already or at the end.
void set(Overrides& overrides, Override wanted);

}  // namespace velmar::drawing
