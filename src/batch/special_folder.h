#pragma once

#include <cstdint>
#include <string>

#include "component/system.h"

namespace velmar {

/// The path of a special folder by its shell number. Error 513 where there is none.
std::string special_folder(const System& system, std::int32_t number);

}  // namespace velmar
