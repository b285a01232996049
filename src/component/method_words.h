#pragma once

#include <string_view>
#include <vector>

#include "component/method.h"

namespace velmar {

/// What users call the job that a method does, in words that other programs and drafters use:
/// "flatten, elevation, z to zero". Empty for a name that is no method's.
std::string_view everyday_words(std::string_view method);

/// The methods that fit words of a user ("sum area"), the best first: each word is the beginning
/// of one in the name, the everyday words or the help. None where some word is nowhere.
std::vector<const Method*> methods_about(std::string_view words);

}  // namespace velmar
