#include <filesystem>
#include <numbers>

#include "drawing/drawing.h"
#include "drawing/extents.h"
#include "drawing/hatch_boundary.h"
#include "near.h"

namespace velmar::drawing {
namespace {

const std::filesystem::path corpus = VELMAR_CORPUS;

Region region_in(const std::string& file) {
  const Drawing drawing = Drawing::open(corpus / file);
  return std::get<Region>(drawing.read_body(drawing.find(0xD69)));
}

std::string disguised(std::string line) {
  for (char& c : line) {
    if (c != ' ') c = static_cast<char>(159 - c);
  }
  return line;
}

/// Three quarters of a disc of radius 2 about (1, 0), with a corner at the centre.
Region wedge(const std::string& placement) {
  const char* const lines[] = {"400 14 1 0",
                               "7 unknown 7 ACIS 4.0 24 Mon Jan 01 00:00:00 2001",
                               "1 9.9999999999999995e-007 1e-010",
                               "body $-1 $-1 $-1 $13 #",
                               "edge $-1 $4 $5 $-1 $10 forward #",
                               "edge $-1 $5 $6 $-1 $11 forward #",
                               "edge $-1 $6 $4 $-1 $12 forward #",
                               "vertex $-1 $1 $7 #",
                               "vertex $-1 $2 $8 #",
                               "vertex $-1 $3 $9 #",
                               "point $-1 1 0 0 #",
                               "point $-1 3 0 0 #",
                               "point $-1 1 -2 0 #",
                               "straight-curve $-1 1 0 0 1 0 0 I I #",
                               "ellipse-curve $-1 1 0 0 0 0 1 2 0 0 1 I I #",
                               "straight-curve $-1 1 -2 0 0 1 0 I I #"};
  Region region;
  for (const char* line : lines) region.data.push_back(disguised(line));
  region.data.push_back(disguised(placement));
  return region;
}

TEST(Region, IsReadFromTheTextOfItsModel) {
  const Region region = region_in("acadsharp/sample_AC1015_ascii.dxf");
  ASSERT_TRUE(edges(region)) << why_unknown(region);
  EXPECT_EQ(edges(region)->size(), 7U);
  // Its points go from (6.495..., -0.4406..., 0) on; the model is moved by (15.27..., -223.3...,
  // 0).
  const Box box = extents(region);
  EXPECT_TRUE(near(box, Box{{21.772069826397733, -223.790810305797768, 0},
                            {28.199438729025496, -217.009225377711601, 0}}));
  const std::vector<Body> bodies{region};
  Hatch hatch;
  hatch.elevation_point.z = box.min.z;
  EXPECT_TRUE(boundary_loop(bodies, hatch)) << "its edges close";
}

TEST(Region, CountsArcsAndWhereTheModelIsPlaced) {
  const std::string plain =
      "transform $-1 1 0 0 0 1 0 0 0 1 0 0 0 1 no_rotate no_reflect no_shear #";
  EXPECT_TRUE(near(extents(wedge(plain)), Box{{-1, -2, 0}, {3, 2, 0}}));
  const std::string turned =
      "transform $-1 0 1 0 -1 0 0 0 0 1 10 0 5 2 rotate no_reflect no_shear #";
  EXPECT_TRUE(near(extents(wedge(turned)), Box{{6, -2, 5}, {14, 6, 5}}));
  const std::vector<Body> bodies{wedge(plain)};
  const auto loop = boundary_loop(bodies, Hatch{});
  ASSERT_TRUE(loop);
  EXPECT_NEAR(std::abs(signed_area(*loop)), 3 * std::numbers::pi, 1e-9);
}

TEST(Region, SaysWhyItsShapeIsNotKnown) {
  EXPECT_NE(why_unknown(region_in("acadsharp/sample_AC1032_ascii.dxf")).find("binary"),
            std::string::npos);
  Region region = wedge("transform $-1 1 0 0 0 1 0 0 0 1 0 0 0 1 #");
  region.data[14] = disguised("intcurve-curve $-1 forward { exactcur } #");
  EXPECT_NE(why_unknown(region).find("curves"), std::string::npos);
  EXPECT_TRUE(extents(region).empty());
  region.data[4] = disguised("edge $-1 $400000000000 $99 $-1 $10 forward #");
  EXPECT_FALSE(edges(region));
  region.data.resize(2);
  EXPECT_FALSE(edges(region));
}

}  // namespace
}  // namespace velmar::drawing
