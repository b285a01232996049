#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "component/method.h"

namespace velmar::cli {

/// The method of that name without regard to case. Fails with UsageError, which names the nearest.
const Method& require_method(std::string_view name);

/// At most three published names that the user may have meant, the likeliest first.
std::vector<std::string_view> nearest_methods(std::string_view name);

/// How to give the arguments: "Text TextString X y RO H [LayerName] [Hidden] [Color] [Hndltext]".
std::string signature(const Method& method);

}  // namespace velmar::cli
