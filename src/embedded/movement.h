#pragma once

#include "drawing/geometry/matrix.h"
#include "embedded/entity_object.h"

namespace velmar::embedded {

/// 445 for a kind that is kept whole without being understood, and for a frame that would turn;
/// `what` names the action.
void require_transformable(const EntityObject& entity, const drawing::Matrix& matrix, Member what);
/// Maps the entity and, of a block reference, its attributes; refuses what require_transformable
/// does.
void transform_entity(EntityObject& entity, const drawing::Matrix& matrix, Member what);

/// The plane that two points of a mirror line span with the z axis; invalid input where they
/// coincide.
drawing::Matrix mirror_line(drawing::Point first, drawing::Point second);
/// The plane of three points; invalid input where they are on one line.
drawing::Matrix mirror_plane(drawing::Point first, drawing::Point second, drawing::Point third);

}  // namespace velmar::embedded
