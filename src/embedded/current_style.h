#pragma once

#include <string>

#include "drawing/entities/common.h"
#include "embedded/document_state.h"

namespace velmar::embedded {

// What new entities take from the drawing: variables set since opening, else its header, else the
// usual defaults. A layer, linetype or style that does not exist counts as not given.

drawing::Common current_common(const DocumentState& document);
std::string current_text_style(const DocumentState& document);
/// The style's fixed height, else $TEXTSIZE.
double current_text_height(const DocumentState& document);
std::string current_dim_style(const DocumentState& document);
double current_elevation(const DocumentState& document);

}  // namespace velmar::embedded
