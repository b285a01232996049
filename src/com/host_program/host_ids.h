#pragma once

#include <string_view>

#include "com/guid.h"

/// Under which names the host program is published. They never change.
namespace velmar::com {

inline constexpr std::string_view host_program_id = "Velmar.Application";
inline constexpr std::string_view host_description = "Velmar drawing host";
inline constexpr std::string_view host_class_id = "5B0E6A4D-2D1F-4E63-9C58-7A1B3C9E04F7";
inline constexpr GUID host_class_guid = guid(host_class_id);

}  // namespace velmar::com
