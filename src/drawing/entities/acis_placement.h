#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/entities/acis_text.h"
#include "drawing/geometry/matrix.h"

namespace velmar::drawing {

/// The map that places the whole model in the drawing. Nothing where the model says it in no form
/// that is known.
std::optional<Matrix> placement(const std::vector<AcisRecord>& records);

/// The lines of a model that is mapped by `map`, which has to keep all shapes alike. Its points and
/// curves stay as they are: only the record that places it changes, or is added at the end. Nothing
/// where that cannot be done.
std::optional<std::vector<std::string>> placed(const std::vector<std::string>& disguised,
                                               const Matrix& map);

}  // namespace velmar::drawing
