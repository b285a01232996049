#include "drawing/dimension/arrowheads.h"

#include <array>
#include <numbers>

#include "drawing/name.h"

namespace velmar::drawing {
namespace {

constexpr std::array<Arrowhead, arrowhead_count> arrowheads{
    {{"", 1},           {"_CLOSEDBLANK", 1}, {"_CLOSED", 1},
     {"_DOT", 1},       {"_ARCHTICK", 0},    {"_OBLIQUE", 0},
     {"_OPEN", 1},      {"_ORIGIN", 1},      {"_ORIGIN2", 1},
     {"_OPEN90", 1},    {"_OPEN30", 1},      {"_DOTSMALL", 0},
     {"_DOTBLANK", 1},  {"_SMALL", 0},       {"_BOXBLANK", 1},
     {"_BOXFILLED", 1}, {"_DATUMBLANK", 1},  {"_DATUMFILLED", 1},
     {"_INTEGRAL", 0},  {"_NONE", 0}}};

constexpr double narrow = 1.0 / 6;                       // half the width of an arrow
constexpr double of_30_degrees = 0.2679491924311227;     // tan 15
constexpr double of_triangle = std::numbers::inv_sqrt3;  // half a side of one with height 1

/// What the blocks hold, one arrow size wide, with the tip at the origin and the line to the left.
struct Stroke {
  std::string_view block;
  double x1, y1, x2, y2;
};
constexpr std::array strokes{Stroke{"_CLOSEDBLANK", 0, 0, -1, narrow},
                             Stroke{"_CLOSEDBLANK", 0, 0, -1, -narrow},
                             Stroke{"_CLOSEDBLANK", -1, narrow, -1, -narrow},
                             Stroke{"_CLOSED", 0, 0, -1, narrow},
                             Stroke{"_CLOSED", 0, 0, -1, -narrow},
                             Stroke{"_CLOSED", -1, narrow, -1, -narrow},
                             Stroke{"_CLOSED", 0, 0, -1, 0},
                             Stroke{"_DOT", -0.5, 0, -1, 0},
                             Stroke{"_OBLIQUE", -0.5, -0.5, 0.5, 0.5},
                             Stroke{"_OPEN", 0, 0, -1, narrow},
                             Stroke{"_OPEN", 0, 0, -1, -narrow},
                             Stroke{"_OPEN", 0, 0, -1, 0},
                             Stroke{"_ORIGIN", 0, 0, -1, 0},
                             Stroke{"_ORIGIN2", -0.5, 0, -1, 0},
                             Stroke{"_OPEN90", 0, 0, -0.5, 0.5},
                             Stroke{"_OPEN90", 0, 0, -0.5, -0.5},
                             Stroke{"_OPEN90", 0, 0, -1, 0},
                             Stroke{"_OPEN30", 0, 0, -1, of_30_degrees},
                             Stroke{"_OPEN30", 0, 0, -1, -of_30_degrees},
                             Stroke{"_OPEN30", 0, 0, -1, 0},
                             Stroke{"_DOTBLANK", -0.5, 0, -1, 0},
                             Stroke{"_BOXBLANK", -0.5, -0.5, 0.5, -0.5},
                             Stroke{"_BOXBLANK", 0.5, -0.5, 0.5, 0.5},
                             Stroke{"_BOXBLANK", 0.5, 0.5, -0.5, 0.5},
                             Stroke{"_BOXBLANK", -0.5, 0.5, -0.5, -0.5},
                             Stroke{"_BOXBLANK", -0.5, 0, -1, 0},
                             Stroke{"_BOXFILLED", -0.5, 0, -1, 0},
                             Stroke{"_DATUMBLANK", 0, of_triangle, -1, 0},
                             Stroke{"_DATUMBLANK", 0, -of_triangle, -1, 0},
                             Stroke{"_DATUMBLANK", 0, of_triangle, 0, -of_triangle}};

struct Ring {
  std::string_view block;
  double radius;  // of the middle of its band
  double band;    // 0: a circle
};
constexpr std::array rings{Ring{"_DOT", 0.25, 0.5},          Ring{"_ORIGIN", 0.5, 0},
                           Ring{"_ORIGIN2", 0.5, 0},         Ring{"_ORIGIN2", 0.25, 0},
                           Ring{"_DOTSMALL", 0.0625, 0.125}, Ring{"_DOTBLANK", 0.5, 0},
                           Ring{"_SMALL", 0.25, 0}};

Body ring_body(const Ring& ring) {
  if (ring.band == 0) {
    Circle circle;
    circle.radius = ring.radius;
    return circle;
  }
  LwPolyline polyline;
  polyline.flags = LwPolyline::closed_flag;
  polyline.constant_width = ring.band;
  polyline.vertices = {{.x = -ring.radius, .bulge = 1}, {.x = ring.radius, .bulge = 1}};
  return polyline;
}

/// Half of an integral sign, to the side of the origin.
Arc quarter(Point center) {
  Arc arc;
  arc.center = center;
  arc.radius = 0.4555;
  arc.start_angle = (center.x > 0 ? 102 : 282) * std::numbers::pi / 180;
  arc.end_angle = arc.start_angle + std::numbers::pi / 2;
  return arc;
}

/// Those that are no strokes and rings.
std::vector<Body> other_bodies(std::string_view block) {
  if (block == "_ARCHTICK") {
    LwPolyline stroke;
    stroke.constant_width = 0.15;
    stroke.vertices = {{.x = -0.5, .y = -0.5}, {.x = 0.5, .y = 0.5}};
    return {stroke};
  }
  if (block == "_BOXFILLED") {
    return {Solid{.corners = {{{-0.5, -0.5}, {0.5, -0.5}, {-0.5, 0.5}, {0.5, 0.5}}}}};
  }
  if (block == "_DATUMFILLED") {
    return {Solid{.corners = {{{0, of_triangle}, {0, -of_triangle}, {-1, 0}, {-1, 0}}}}};
  }
  if (block == "_INTEGRAL") {
    return {quarter({0.4454, -0.0947, 0}), quarter({-0.4454, 0.0947, 0})};
  }
  return {};
}

/// Before AC1015 their names stand in the variables without the "_".
const Arrowhead* find(std::string_view block) {
  for (const Arrowhead& one : arrowheads) {
    const bool has_short_name = !one.block.empty() && same_name(one.block.substr(1), block);
    if (same_name(one.block, block) || has_short_name) return &one;
  }
  return nullptr;
}

}  // namespace

const Arrowhead& arrowhead(std::int32_t number) {
  return arrowheads.at(static_cast<std::size_t>(number));
}

std::int32_t arrowhead_number(std::string_view block) {
  const Arrowhead* found = find(block);
  return found ? static_cast<std::int32_t>(found - arrowheads.data()) : arrowhead_of_user;
}

double arrowhead_trim(std::string_view block) {
  const Arrowhead* found = find(block);
  return found ? found->trim : 1;
}

std::string arrow_block(const Drawing& drawing, const std::string& name) {
  if (name.empty() || drawing.find_space(name)) return name;
  const Arrowhead* found = find(name);
  return found ? std::string(found->block) : std::string();
}

void require_arrow_block(Drawing& drawing, std::string_view block) {
  const Arrowhead* found = find(block);
  if (!found || found->block.empty() || drawing.find_space(block)) return;
  if (drawing.find_space(found->block)) return;
  const SpaceId space = drawing.add_definition(std::string(found->block));
  std::vector<Body> bodies = other_bodies(found->block);
  for (const Stroke& stroke : strokes) {
    if (stroke.block != found->block) continue;
    bodies.emplace_back(Line{{stroke.x1, stroke.y1, 0}, {stroke.x2, stroke.y2, 0}});
  }
  for (const Ring& ring : rings) {
    if (ring.block == found->block) bodies.push_back(ring_body(ring));
  }
  Common common;
  common.linetype = "ByBlock";
  common.color = 0;
  for (const Body& body : bodies) drawing.add(space, {common, body});
}

}  // namespace velmar::drawing
