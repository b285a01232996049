#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>

#include "drawing/extents.h"
#include "embedded/entity_scene.h"
#include "embedded/error_numbers.h"

// What an independent reader makes of the corpus's block references
// (tests/corpus/explode_facts.py).

namespace velmar::embedded {
namespace {

using drawing::Box;
using drawing::Drawing;
using nlohmann::json;

/// Kinds whose box needs no font.
bool without_fonts(const std::string& kind) {
  static const char* const kinds[] = {"LINE",     "ARC",   "CIRCLE", "ELLIPSE", "LWPOLYLINE",
                                      "POLYLINE", "SOLID", "TRACE",  "3DFACE"};
  return std::ranges::find(kinds, kind) != std::end(kinds);
}

struct Parts {
  std::map<std::string, int> kinds;
  Box box;
};

Parts exploded_parts(const EntityScene& scene, const std::string& handle) {
  const Drawing& drawing = scene.document->drawing;
  Parts parts;
  const Value made = scene.call(handle, Member::Explode);
  for (const Value& item : *made.if_is<basic::List>()) {
    const auto object = EntityScene::as_object(item);
    const Value own = object->get(Member::Handle);
    const auto id = drawing.find(drawing::parse_handle(*own.if_is<std::string>()));
    const std::string kind(drawing.kind_name(id));
    if (kind == "ATTDEF") continue;
    ++parts.kinds[kind];
    if (!without_fonts(kind)) continue;
    if (const auto box = drawing::extents(drawing, id)) parts.box.add(*box);
  }
  return parts;
}

void expect_box(const Box& box, const json& expected, const std::string& where) {
  ASSERT_EQ(box.empty(), expected.is_null()) << where;
  if (box.empty()) return;
  // The reader takes arcs and ellipses for curves of third degree.
  const double tolerance = 1e-9 * (1 + norm(box.max)) + 3e-4 * norm(box.max - box.min);
  EXPECT_NEAR(box.min.x, expected[0][0].get<double>(), tolerance) << where;
  EXPECT_NEAR(box.min.y, expected[0][1].get<double>(), tolerance) << where;
  EXPECT_NEAR(box.max.x, expected[1][0].get<double>(), tolerance) << where;
  EXPECT_NEAR(box.max.y, expected[1][1].get<double>(), tolerance) << where;
}

TEST(ExplodeFacts, KindsAndBoxesAreThoseOfAnIndependentReader) {
  const std::filesystem::path corpus = VELMAR_CORPUS;
  const json files = json::parse(std::ifstream(corpus / "explode.json"));
  int compared = 0;
  for (const auto& [file, references] : files.items()) {
    const EntityScene scene(Drawing::open(corpus / file));
    for (const auto& [handle, facts] : references.items()) {
      const std::string where = file + " #" + handle;
      const Parts parts = exploded_parts(scene, handle);
      EXPECT_EQ(json(parts.kinds), facts["kinds"]) << where;
      expect_box(parts.box, facts["box"], where);
      ++compared;

      const Value scale = scene.get(handle, Member::XScaleFactor);
      scene.put(handle, Member::XScaleFactor, 2 * *scale.if_is<double>());
      try {
        expect_box(exploded_parts(scene, handle).box, facts["stretched"], where + " stretched");
      } catch (const basic::Failure& failure) {
        EXPECT_LT(scene.document->drawing.version(), "AC1012") << where << failure.description;
        EXPECT_EQ(failure.number, no_such_action) << where << failure.description;
      }
    }
  }
  EXPECT_GT(compared, 100);
}

}  // namespace
}  // namespace velmar::embedded
