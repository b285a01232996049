#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "basic/value.h"
#include "component/method.h"

namespace velmar::cli {

/// Turns the words of the command line into the arguments of a method, one for each parameter:
///
/// - "-" alone, and what is missing at the end, leaves an optional argument out;
/// - 'text' in single quotes is that text, whatever the parameter's type;
/// - a variant is a number (the smallest type that holds it), a point "x,y[,z]", or else a text;
/// - a boolean is true, false or a number, which is true unless it is 0.
///
/// Fails with UsageError for what a parameter cannot hold, and for too few or too many words.
std::vector<basic::Value> read_arguments(const Method& method, std::span<const std::string> words);

/// Why a word cannot be the argument number `parameter`; nothing where it can.
std::optional<std::string> refusal(const Method& method, std::size_t parameter,
                                   const std::string& word);

}  // namespace velmar::cli
