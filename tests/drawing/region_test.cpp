#include <filesystem>
#include <numbers>

#include "drawing/drawing.h"
#include "drawing/extents.h"
#include "drawing/hatch_boundary.h"
#include "near.h"

namespace velmar::drawing {
namespace {

const std::filesystem::path corpus_folder = VELMAR_CORPUS;

Region region_in(const std::string& file) {
  const Drawing drawing = Drawing::open(corpus_folder / file);
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

// Its shoelace sum and the lengths of its sides from the points of the file.
TEST(Region, TellsItsAreaAndPerimeter) {
  const Region region = region_in("acadsharp/sample_AC1015_ascii.dxf");
  const std::vector<Point> corners{
      {8.457383344332726, 4.380771426791327},   {6.495344356571394, 1.0012440145166721},
      {9.60754389890343, -0.44068764508185154}, {12.922713259201657, 2.37558519848036509},
      {11.97552210326009, 5.0116165536507253},  {8.885874506662788, 6.340897283004324},
      {10.126243892514964, 3.2993226614644016}};
  double doubled = 0, around = 0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point a = corners[i], b = corners[(i + 1) % corners.size()];
    doubled += a.x * b.y - a.y * b.x;
    around += norm(b - a);
  }
  ASSERT_TRUE(area(region) && perimeter(region));
  EXPECT_NEAR(*area(region), std::abs(doubled) / 2, 1e-9);
  EXPECT_NEAR(*perimeter(region), around, 1e-9);
  EXPECT_FALSE(area(region_in("acadsharp/sample_AC1032_ascii.dxf")));
}

TEST(Region, IsMappedByThePlacementOfItsModelAlone) {
  Drawing drawing = Drawing::open(corpus_folder / "acadsharp/sample_AC1015_ascii.dxf");
  const std::string before = drawing.bytes();
  const RecordId id = drawing.find(0xD69);
  Region region = region_in("acadsharp/sample_AC1015_ascii.dxf");
  const Box was = extents(region);
  const Matrix map = rotation({1, 2, 0}, z_axis, std::numbers::pi / 2);
  for (const Matrix& step : {scaling({1, 2, 0}, 3), map, reflection({1, 2, 0}, x_axis)}) {
    ASSERT_TRUE(can_transform(region, step));
    transform(region, step);
  }
  drawing.write_body(id, region);
  const Drawing saved = Drawing::read(drawing.bytes(), "saved.dxf");
  const auto again = std::get<Region>(saved.read_body(saved.find(0xD69)));
  Box image;
  for (const Point corner : {was.min, was.max}) {
    image.add(reflection({1, 2, 0}, x_axis)(map(scaling({1, 2, 0}, 3)(corner))));
  }
  EXPECT_LT(norm(extents(again).min - image.min) + norm(extents(again).max - image.max), 1e-9);
  EXPECT_NEAR(*area(again), 9 * *area(region_in("acadsharp/sample_AC1015_ascii.dxf")), 1e-8);

  const std::string after = drawing.bytes();
  std::size_t first = 0, last = 0;  // bytes that are the same at the front and at the end
  while (before[first] == after[first]) ++first;
  while (before[before.size() - 1 - last] == after[after.size() - 1 - last]) ++last;
  EXPECT_LT(before.size() - last - first, 160U) << "one line of the model";
  EXPECT_FALSE(can_transform(region, Matrix{{2, 0, 0}, {0, 1, 0}, {0, 0, 1}}));
}

TEST(Region, GetsAPlacementWhereItsModelHasNone) {
  Region region = wedge("point $-1 0 0 0 #");
  region.data[3] = disguised("body $-1 $-1 $-1 $-1 #");
  ASSERT_TRUE(can_transform(region, translation({10, 0, 0})));
  transform(region, translation({10, 0, 0}));
  EXPECT_EQ(region.data.size(), 18U);
  EXPECT_TRUE(near(extents(region), Box{{9, -2, 0}, {13, 2, 0}}));
  EXPECT_EQ(region.data[0].substr(0, 6), disguised("400 15")) << "the records are counted";
  region.data[0] = disguised("400 7 1 0");
  region.data[3] = disguised("body $-1 $-1 $-1 $-1 #");
  EXPECT_FALSE(can_transform(region, translation({10, 0, 0}))) << "the header counts otherwise";
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
