#pragma once

#include <utility>
#include <vector>

#include "drawing/drawing.h"
#include "embedded/plan_geometry.h"

namespace velmar::embedded {

// Finding entities as a user sees them, in plan. What cannot be seen (entities made invisible, or
// on layers switched off or frozen) is passed over; so is what has no known geometry.

bool is_visible(const drawing::Drawing& drawing, drawing::RecordId id);

/// The entity drawn last of those whose outline touches the pick box around the point: half its
/// side is 0.5 % of the larger side of what the space shows. Inside a text counts as its outline.
/// None where there is nothing.
drawing::RecordId entity_at(const drawing::Drawing& drawing, drawing::SpaceId space,
                            drawing::Point point);

enum class Reach {
  window,    // wholly inside
  crossing,  // inside or across the edge
};
/// The entities within a rectangle given by two opposite corners, in drawing order.
std::vector<drawing::RecordId> entities_within(
    const drawing::Drawing& drawing, drawing::SpaceId space,
    const std::pair<drawing::Point, drawing::Point>& corners, Reach reach);

/// The same within a polygon, closed from its last point to the first.
std::vector<drawing::RecordId> entities_within(const drawing::Drawing& drawing,
                                               drawing::SpaceId space, const Chain& polygon,
                                               Reach reach);
/// The entities that the open chain crosses, in drawing order.
std::vector<drawing::RecordId> entities_on_fence(const drawing::Drawing& drawing,
                                                 drawing::SpaceId space, const Chain& fence);

/// The entity drawn last in the space; none where nothing is visible.
drawing::RecordId last_visible(const drawing::Drawing& drawing, drawing::SpaceId space);

}  // namespace velmar::embedded
