#pragma once

#include "embedded/document_state.h"

namespace velmar::embedded {

// What the active layout shows, as it is saved: the active viewport of model space, or the viewport
// that shows the whole sheet. Nothing is done where the drawing has none, or there is nothing to
// see.

/// The rectangle of two opposite corners.
void zoom_window(DocumentState& document, drawing::Point corner, drawing::Point opposite);
/// All entities whose layers are not frozen.
void zoom_extents(DocumentState& document);
/// The same with the limits of the drawing.
void zoom_all(DocumentState& document);

}  // namespace velmar::embedded
