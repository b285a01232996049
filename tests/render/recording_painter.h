#pragma once

#include <algorithm>
#include <string>

#include "drawing/drawing.h"
#include "drawing/sample_text.h"
#include "render/scene.h"

namespace velmar::render {

/// What was painted, in its order.
class RecordingPainter final : public Painter {
 public:
  struct Stroke {
    Chain chain;
    Ink ink;
    double width;
    int clips;
  };
  struct Fill {
    std::vector<Chain> areas;
    Ink ink;
  };

  void stroke(const Chain& chain, const Ink& ink, double width) override {
    strokes.push_back({chain, ink, width, clips_});
    if (clips_ > 0) return;
    for (const Point& p : chain) all.add(p);
  }
  void fill(const std::vector<Chain>& areas, const Ink& ink, Rule) override {
    fills.push_back({areas, ink});
    if (clips_ > 0) return;
    for (const Chain& area : areas) {
      for (const Point& p : area) all.add(p);
    }
  }
  void push_clip(const std::vector<Chain>& areas) override {
    ++clips_;
    clips.push_back(window_of(areas.at(0)));
  }
  void pop_clip() override { --clips_; }

  std::vector<Stroke> strokes;
  std::vector<Fill> fills;
  std::vector<Window> clips;
  Window all;  // of what is not clipped

 private:
  int clips_ = 0;
};

/// A drawing of the release 2000: header words, rows of LTYPE and LAYER, blocks, entities of model
/// space, all as drawing::dxf takes them.
struct SceneText {
  std::string header, linetypes, layers, blocks, entities;

  drawing::Drawing read() const {
    const std::string words = "0 SECTION 2 HEADER 9 $ACADVER 1 AC1015 " + header +
                              " 0 ENDSEC 0 SECTION 2 TABLES 0 TABLE 2 LTYPE 70 9 " + linetypes +
                              " 0 ENDTAB 0 TABLE 2 LAYER 70 9 " + layers +
                              " 0 ENDTAB 0 ENDSEC 0 SECTION 2 BLOCKS " + blocks +
                              " 0 ENDSEC 0 SECTION 2 ENTITIES " + entities + " 0 ENDSEC 0 EOF";
    return drawing::Drawing::read(drawing::dxf_text(words), "scene.dxf");
  }
};

inline std::string layer(const std::string& name, int color, int flags = 0,
                         const std::string& more = "") {
  return " 0 LAYER 100 AcDbSymbolTableRecord 100 AcDbLayerTableRecord 2 " + name + " 70 " +
         std::to_string(flags) + " 62 " + std::to_string(color) + " " +
         (more.empty() ? "6 Continuous" : more);
}
/// A line of that length along y = `y`, with tags of its own before its points.
inline std::string line(double length, double y, const std::string& tags) {
  return " 0 LINE 100 AcDbEntity " + tags + " 100 AcDbLine 10 0 20 " + std::to_string(y) + " 11 " +
         std::to_string(length) + " 21 " + std::to_string(y);
}
inline std::string block(const std::string& name, const std::string& content) {
  return " 0 BLOCK 100 AcDbEntity 8 0 100 AcDbBlockBegin 2 " + name + " 70 0 10 0 20 0 3 " + name +
         " 1 @ " + content + " 0 ENDBLK 100 AcDbEntity 8 0";
}
inline std::string insert(const std::string& name, const std::string& tags,
                          const std::string& place = "10 0 20 0") {
  return " 0 INSERT 100 AcDbEntity " + tags + " 100 AcDbBlockReference 2 " + name + " " + place;
}

/// Paints a space one to one: a unit is a picture unit, y upwards.
inline RecordingPainter painted(Scene& scene, drawing::SpaceId space = drawing::SpaceId::model,
                                const Window& window = {-1e4, -1e4, 1e4, 1e4}) {
  RecordingPainter painter;
  scene.draw(space, {painter, window, drawing::Matrix{}});
  return painter;
}
inline RecordingPainter painted(const drawing::Drawing& drawing,
                                const SettingOptions& options = {}) {
  Scene scene(drawing, options);
  return painted(scene);
}

}  // namespace velmar::render
