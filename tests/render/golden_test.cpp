// Small pictures that were looked at once; `golden/` has them as `velmar render --size 240x180`
// made them. Fonts and releases of cairo may differ a little.

#include "render/picture.h"

#ifdef VELMAR_CAIRO

#include <cairo.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>

#include "render/frame.h"
#include "render/scene.h"

namespace velmar::render {
namespace {

constexpr int width = 240, height = 180;

struct Close {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, Close>;

cairo_status_t next_bytes(void* from, unsigned char* to, unsigned int size) {
  auto& bytes = *static_cast<std::string_view*>(from);
  if (bytes.size() < size) return CAIRO_STATUS_READ_ERROR;
  std::memcpy(to, bytes.data(), size);
  bytes.remove_prefix(size);
  return CAIRO_STATUS_SUCCESS;
}

/// How far a colour channel is off on average, of 255.
double difference(cairo_surface_t* a, cairo_surface_t* b) {
  double sum = 0;
  for (int y = 0; y < height; ++y) {
    const auto row = [&](cairo_surface_t* surface) {
      return cairo_image_surface_get_data(surface) + y * cairo_image_surface_get_stride(surface);
    };
    for (int x = 0; x < 4 * width; ++x) {
      if (x % 4 != 3) sum += std::abs(row(a)[x] - row(b)[x]);
    }
  }
  return sum / (3.0 * width * height);
}

class Golden : public testing::TestWithParam<const char*> {};

TEST_P(Golden, LooksAsItDid) {
  const std::string path = GetParam();
  const auto drawing = drawing::Drawing::open(std::string(VELMAR_CORPUS) + "/" + path + ".dxf");
  Scene scene(drawing, {});
  const drawing::Box box = scene.extents(drawing::SpaceId::model);
  Window shown;
  shown.add(box.min);
  shown.add(box.max);
  const Frame frame =
      make_frame(shown, {.size = std::pair(double(width), double(height)), .margin = 10});
  const std::string bytes =
      picture({Format::png, frame.width, frame.height, {255, 255, 255}}, [&](Painter& painter) {
        scene.draw(drawing::SpaceId::model, {painter, frame.window(), frame.place});
      });
  std::string_view rest = bytes;
  const Surface drawn(cairo_image_surface_create_from_png_stream(next_bytes, &rest));
  const std::string file =
      std::string(VELMAR_CORPUS) + "/../render/golden/" + path.substr(path.find('/') + 1) + ".png";
  const Surface golden(cairo_image_surface_create_from_png(file.c_str()));
  ASSERT_EQ(cairo_surface_status(golden.get()), CAIRO_STATUS_SUCCESS) << file;
  ASSERT_EQ(cairo_image_surface_get_width(golden.get()), width);
  ASSERT_EQ(cairo_image_surface_get_height(golden.get()), height);
  EXPECT_LT(difference(drawn.get(), golden.get()), 1.5);
}

INSTANTIATE_TEST_SUITE_P(Pictures, Golden,
                         testing::Values("acadsharp/sample_AC1032_ascii", "ezdxf/hatches_2",
                                         "netdxf/sample"),
                         [](const auto& test) {
                           const std::string path = test.param;
                           return path.substr(0, path.find('/'));
                         });

}  // namespace
}  // namespace velmar::render

#endif
