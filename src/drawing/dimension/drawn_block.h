#pragma once

#include <vector>

#include "drawing/dimension/linear_layout.h"
#include "drawing/drawing.h"

namespace velmar::drawing {

// What a viewer shows of a dimension is the content of its block "*Dn", drawn in world coordinates.

/// What a linear dimension looks like as its points, style and overrides say; nothing for the other
/// kinds.
std::vector<Entity> drawn_content(const Drawing& drawing, RecordId dimension);

/// Where its parts go. Of linear dimensions alone.
LinearLayout linear_layout(const Drawing& drawing, RecordId dimension);

/// Draws a linear dimension anew into its block, a new one where it has none or others show the
/// same; brings the point on its dimension line, the place of its text and what was measured up to
/// date. Leaves the other kinds as they are.
void draw(Drawing& drawing, RecordId dimension);

/// Maps the dimension and its block. Linear ones are drawn anew unless they are only shifted: their
/// text tells the new length in the old size. Of the others the content is mapped; fails, with
/// nothing changed, where that holds a kind that is not understood.
void transform_dimension(Drawing& drawing, RecordId dimension, const Matrix& matrix);

/// Gives a copied dimension a block of its own, with the same content.
void copy_drawn_block(Drawing& drawing, RecordId dimension);

}  // namespace velmar::drawing
