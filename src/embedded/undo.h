#pragma once

#include <optional>
#include <string>

#include "embedded/document_state.h"

namespace velmar::embedded {

// Drawing::undo and redo, after which what is kept beside the drawing follows it.

std::optional<std::string> undo(DocumentState& document);
std::optional<std::string> redo(DocumentState& document);

}  // namespace velmar::embedded
