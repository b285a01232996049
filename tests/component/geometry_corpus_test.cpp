// Flattening and uneven scaling on every sound drawing of the corpus, and under a decimal comma.

#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "calc/called.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "embedded/application.h"
#include "embedded/entity_scene.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"
#include "host/entity_cast.h"

namespace velmar {
namespace {

namespace fs = std::filesystem;

using drawing::Drawing;
using drawing::Kind;
using drawing::RecordId;

/// The embedded host of this thread, with one drawing.
class Opened {
 public:
  Opened(const fs::path& path, std::vector<std::string> answers)
      : input_(std::move(answers)), application_(embedded::start(input_, {{path}})) {
    install_host_factory([this] { return application_; });
    release_host_application();
  }
  ~Opened() {
    release_host_application();
    install_host_factory({});
  }
  Opened(const Opened&) = delete;
  Opened& operator=(const Opened&) = delete;

  Drawing& drawing() const { return application_->documents().front()->drawing; }
  host::Document document() const { return host::Application(application_).ActiveDocument(); }

 private:
  embedded::ScriptedInput input_;
  std::shared_ptr<embedded::Application> application_;
};

std::vector<fs::path> sound_drawings() {
  std::vector<fs::path> drawings;
  for (const auto& entry : fs::directory_iterator(fs::path(VELMAR_CORPUS) / "facts")) {
    const auto facts = nlohmann::json::parse(std::ifstream(entry.path()));
    const fs::path path = fs::path(VELMAR_CORPUS) / facts["file"].get<std::string>();
    if (facts.value("load", "") == "readfile" && fs::exists(path)) drawings.push_back(path);
  }
  return drawings;
}

std::vector<RecordId> of_kind(const Drawing& drawing, Kind kind) {
  std::vector<RecordId> found = drawing.entities(drawing::SpaceId::model);
  std::erase_if(found, [&](RecordId id) { return drawing.record(id).kind != kind; });
  return found;
}

bool has_locked_layer(const Drawing& drawing) {
  return std::ranges::any_of(drawing.layers(),
                             [](const drawing::Layer& layer) { return layer.locked(); });
}

bool is_flattened(Kind kind) {
  constexpr Kind kinds[] = {Kind::text,       Kind::line,      Kind::circle,   Kind::arc,
                            Kind::ellipse,    Kind::tolerance, Kind::polyline, Kind::hatch,
                            Kind::lwpolyline, Kind::insert,    Kind::region};
  return std::ranges::find(kinds, kind) != std::end(kinds);
}

void expect_sound(const Drawing& edited, const Drawing& original) {
  const Drawing again = Drawing::read(edited.bytes(), "again");
  EXPECT_LE(again.check().size(), original.check().size());
  EXPECT_LE(again.warnings().size(), original.warnings().size());
}

TEST(GeometryCorpus, FlatteningPutsLinesOnTheGroundAndLeavesOtherKindsAlone) {
  int flattened = 0;
  for (const fs::path& path : sound_drawings()) {
    const Drawing original = Drawing::open(path);
    const Opened opened(path, {});
    if (failure_of([] { Velmar16().Alignement(); })) continue;  // a locked layer, a region
    ++flattened;
    for (const RecordId id : of_kind(opened.drawing(), Kind::line)) {
      const auto line = std::get<drawing::Line>(opened.drawing().read_body(id));
      EXPECT_EQ(line.start.z, 0) << path;
      EXPECT_EQ(line.end.z, 0) << path;
    }
    for (const drawing::Handle handle : opened.drawing().changes().modified) {
      EXPECT_TRUE(is_flattened(original.record(original.find(handle)).kind)) << path << handle;
    }
    EXPECT_TRUE(opened.drawing().changes().added.empty());
    expect_sound(opened.drawing(), original);
  }
  EXPECT_GT(flattened, 20);
}

using Ends = std::array<double, 4>;

std::vector<Ends> lines_of(const Drawing& drawing, double x, double y) {
  std::vector<Ends> lines;
  for (const RecordId id : of_kind(drawing, Kind::line)) {
    const auto line = std::get<drawing::Line>(drawing.read_body(id));
    lines.push_back({line.start.x * x, line.start.y * y, line.end.x * x, line.end.y * y});
  }
  std::ranges::sort(lines);
  return lines;
}

TEST(GeometryCorpus, ScalingLandsWhereArithmeticSays) {
  int scaled = 0;
  for (const fs::path& path : sound_drawings()) {
    const Drawing original = Drawing::open(path);
    if (has_locked_layer(original)) continue;
    const Opened opened(path, {"2", "3"});
    double x = 0, y = 0;
    Velmar16().ScaleXY(y, x);
    ++scaled;
    const Drawing& drawing = opened.drawing();
    EXPECT_EQ(lines_of(drawing, 1, 1), lines_of(original, 2, 3)) << path;
    for (const RecordId id : of_kind(drawing, Kind::lwpolyline)) {
      const auto after = std::get<drawing::LwPolyline>(drawing.read_body(id)).vertices;
      const auto before = std::get<drawing::LwPolyline>(original.read_body(id)).vertices;
      for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(after[i].x, before[i].x * 2) << path;
        EXPECT_EQ(after[i].y, before[i].y * 3) << path;
      }
    }
    for (const drawing::Handle handle : drawing.changes().modified) {
      const std::string_view kind = original.kind_name(original.find(handle));
      const bool is_view = kind == "VIEWPORT";  // of the sheet that was zoomed
      const bool follows = kind == "HATCH";     // followed a line that is another one now
      EXPECT_TRUE(is_view || follows || kind == "LWPOLYLINE" || kind == "POLYLINE") << path << kind;
    }
    expect_sound(drawing, original);
  }
  EXPECT_GT(scaled, 15);
}

TEST(DecimalComma, CutsFractionsOffWhereNumbersGoThroughText) {
  const fs::path path = fs::temp_directory_path() / "velmar-comma.dxf";
  std::ofstream(path, std::ios::binary) << embedded::drawing_text(
      embedded::head("ARC", "30") +
      "100 AcDbCircle\n10 1\n20 2\n30 2.5\n40 1\n100 AcDbArc\n50 0\n51 90\n" +
      embedded::head("TEXT", "31") +
      "100 AcDbText\n10 1.75\n20 2.5\n30 0\n40 5\n1 NOTE\n100 AcDbText\n");
  const Opened opened(path, {"2", "2"});
  Velmar16 velmar(std::make_shared<CommaSystem>());
  const auto arc = [&] { return host::as<host::Arc>(opened.document().HandleToObject("30")); };
  velmar.Alignement();
  EXPECT_EQ(arc().Center().z, 0.5);

  double x = 0, y = 0;
  velmar.ScaleXY(y, x);
  const auto model_space = opened.document().ModelSpace();
  const auto text = host::as<host::Text>(model_space.Item(1));
  EXPECT_EQ(text.InsertionPoint(), (host::Point{2, 4, 0}));

  // The points that are typed are broken: the host's command draws nothing.
  Value x1 = 0.5, y1 = 0.5, x2 = 100.0;
  double y2 = 0.5, distance = 0;
  std::string style;
  bool by_command = true;
  velmar.DimAL(x1, y1, x2, y2, style, by_command, distance);
  EXPECT_EQ(model_space.Count(), 2);
  fs::remove(path);
}

}  // namespace
}  // namespace velmar
