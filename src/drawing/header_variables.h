#pragma once

#include <functional>
#include <map>
#include <string>

namespace velmar::drawing {

/// Values by names ("$CLAYER").
using HeaderVariables = std::map<std::string, std::string, std::less<>>;

}  // namespace velmar::drawing
