#pragma once

#include <string_view>

#include "embedded/document_state.h"

namespace velmar::embedded {

// The system variables that GetVariable and SetVariable know; names without regard to case.
// What is set holds as long as the drawing is open and is not saved with it, but TILEMODE is.

/// Invalid argument for a name that is unknown.
basic::Value get_variable(const DocumentState& document, std::string_view name);
/// Also for one that cannot be set.
void set_variable(DocumentState& document, std::string_view name, const basic::Value& value);

}  // namespace velmar::embedded
