#pragma once

#include <string>

#include "embedded/document_state.h"

namespace velmar::cli {

/// What an entity is, for people: kind, handle, layer and look, then its sizes and places by the
/// names of the automation model.
std::string entity_text(const embedded::DocumentPointer& document, drawing::RecordId id);

}  // namespace velmar::cli
