#pragma once

#include "embedded/document_state.h"

namespace velmar::embedded {

// What the user works on in a drawing: what the file's header says until he changes it.

/// Where new entities are put; layer "0" where the header names none that exists.
drawing::LayerId current_layer(const DocumentState& document);

/// Model space, or the paper space of the last active layout while TILEMODE is 0.
drawing::SpaceId current_space(const DocumentState& document);
/// Makes model space or a sheet the one that is worked in; the drawing says so from then on.
void activate_space(DocumentState& document, drawing::SpaceId space);
/// None where the drawing has no sheet.
drawing::SpaceId paper_space(const drawing::Drawing& drawing);
/// Whether it is model space or the sheet of a layout, and no block definition.
bool is_sheet(const drawing::Drawing& drawing, drawing::SpaceId space);

}  // namespace velmar::embedded
