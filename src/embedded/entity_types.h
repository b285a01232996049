#pragma once

#include <cstdint>
#include <string_view>

namespace velmar::embedded {

/// EntityType (AcEntityName) of an ObjectName; 0 for a class that the enumeration does not know.
std::int32_t entity_type(std::string_view object_name);

}  // namespace velmar::embedded
