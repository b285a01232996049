#pragma once

#include <string>
#include <string_view>

#include "drawing/drawing.h"

namespace velmar::embedded {

// Names that properties are set to. They are found without regard to case; the result is the
// drawing's own spelling.

/// A layer that is not deleted; otherwise key not found.
drawing::LayerId require_layer(const drawing::Drawing& drawing, std::string_view name);
/// Nothing where there is no such layer, or it was deleted.
std::optional<drawing::LayerId> find_layer(const drawing::Drawing& drawing, std::string_view name);
/// False for a layer that was deleted.
bool exists(const drawing::Drawing& drawing, drawing::LayerId layer);

/// A row of the table; otherwise key not found.
std::string require_row(const drawing::Drawing& drawing, std::string_view table,
                        std::string_view name);
/// A row of the LTYPE table or Continuous, and for an entity ByLayer or ByBlock; otherwise
/// undefined linetype.
enum class LinetypeOf { entity, layer };
/// ByLayer, ByBlock and Continuous as the host spells them, other names as they are.
std::string linetype_spelling(std::string name);
std::string require_linetype(const drawing::Drawing& drawing, const std::string& name, LinetypeOf);
/// The name of a block definition; otherwise key not found.
std::string require_block(const drawing::Drawing& drawing, std::string_view name);

/// Refuses (invalid input) what no table row may be called: nothing, or one of <>/\":;?*|,=`
void require_valid_name(std::string_view name);
/// Refuses (invalid input) a number that is none of the line weights.
void require_lineweight(std::int32_t weight);

}  // namespace velmar::embedded
