#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "drawing/purge_candidates.h"

namespace velmar::drawing {

/// That a group code of a kind of record names something.
struct NameCode {
  std::int16_t code;
  Purgeable names;
};

/// The group codes by which records of a kind name others, beside layer (8) and linetype (6) that
/// every entity has. Nothing for a kind that is not understood: any text of it may be a name.
std::optional<std::span<const NameCode>> name_codes(std::string_view kind_name);

}  // namespace velmar::drawing
