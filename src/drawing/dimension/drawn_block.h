#pragma once

#include <vector>

#include "drawing/dimension/layout.h"
#include "drawing/drawing.h"

namespace velmar::drawing {

// What a viewer shows of a dimension is the content of its block "*Dn", drawn in world coordinates.

/// What a dimension looks like as its points, style and overrides say.
std::vector<Entity> drawn_content(const Drawing& drawing, RecordId dimension);

/// Where its parts go.
DimensionLayout layout_of(const Drawing& drawing, RecordId dimension);

/// Draws a dimension anew into its block, a new one where it has none or others show the same;
/// brings the point on its dimension line, the place of its text and what was measured up to date.
void draw(Drawing& drawing, RecordId dimension);

/// Moves the text to a place in world coordinates. Unless variables have the text move alone, the
/// dimension line goes with it.
void move_text(Drawing& drawing, RecordId dimension, Point place);

/// Maps the dimension and its block. It is drawn anew unless it is only shifted: its text tells the
/// new length in the old size. A shift fails, with nothing changed, where the block holds a kind
/// that is not understood.
void transform_dimension(Drawing& drawing, RecordId dimension, const Matrix& matrix);

/// The same for a dimension that is never drawn anew; the map keeps measures. Fails, with nothing
/// changed, where the block holds a kind that is not understood.
void transform_kept_dimension(Drawing& drawing, RecordId dimension, const Matrix& matrix);

/// Gives a copied dimension a block of its own, with the same content.
void copy_drawn_block(Drawing& drawing, RecordId dimension);

}  // namespace velmar::drawing
