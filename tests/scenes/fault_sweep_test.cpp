// Every step of the commands on geometry, drawings and folders fails once, on the embedded host.

#include "scenes/fault_sweep.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "component/method_table.h"
#include "scenes/entity_lines.h"
#include "scenes/scene.h"

namespace velmar {
namespace {

using basic::Value;

struct Case {
  const char* method;
  std::vector<Value> arguments;  // "FOLDER" stands for a folder with a drawing of each sort
  std::vector<std::string> answers;
};

const Case cases[] = {
    {"AlignDonut", {}, {"#31", "#30", ""}},
    {"OMove", {"30", 5.0}, {}},
    {"Alignement", {}, {}},
    {"AlignDimension", {}, {"#31"}},
    {"Hatch", {100.0, 50.0, 0.0, 0.0}, {}},
    {"HatchAligned", {"30"}, {}},
    {"Sc", {"30", 2.0, 0.0, 0.0}, {}},
    {"DimAL", {0.0, 0.0, 100.0, 0.0}, {}},
    {"DimAL", {0.0, 0.0, 100.0, 0.0, "Standard", true}, {}},
    {"ScaleXY", {}, {"2", "3"}},
    {"Unload_TB", {}, {}},
    {"Unload_Xref", {}, {}},
    {"SaveAllDrawings", {}, {}},
    {"SaveAllCurrentDrawings", {}, {}},
    {"LoadAllCurrentDrawings", {}, {}},
    {"PurgeALLFolder", {"FOLDER"}, {}},
    {"FolderDwgDxf", {"FOLDER"}, {}},
    {"FolderDxfDwg", {"FOLDER"}, {}},
    {"FolderDGN", {"FOLDER"}, {}},
    {"DeleteLayouts", {"FOLDER"}, {}},
    {"ZoomLayouts", {}, {}},
    {"ExplodeBlock", {}, {"#33"}},
    {"DeleteBlock", {}, {"#33"}},
    {"Delete_OLE", {}, {}},
};

/// All of it at z 0: flattening would move it in a way that swallows failures.
std::string entities() {
  return embedded::head("LWPOLYLINE", "30") +
         "100 AcDbPolyline\n90 3\n70 1\n10 0\n20 0\n10 9\n20 0\n10 9\n20 9\n" + line_lines("31") +
         circle_lines("32") + embedded::head("INSERT", "33") +
         "100 AcDbBlockReference\n2 DOOR\n10 5\n20 5\n30 0\n";
}

std::string folder_of_drawings(const Scene& scene) {
  const std::filesystem::path folder = scene.folder() / "drawings";
  std::filesystem::create_directory(folder);
  for (const char* name : {"a.dwg", "b.dxf", "c.dgn"}) {
    std::ofstream(folder / name, std::ios::binary) << embedded::drawing_text(line_lines("30"));
  }
  return folder.string();
}

bool is_reached(const Case& tried, const Method& method, int n) {
  const FailingStep step(n);
  Scene scene(entities(), step);
  scene.answers(tried.answers);
  std::vector<Value> arguments = tried.arguments;
  if (!arguments.empty() && arguments[0] == Value("FOLDER")) {
    arguments[0] = folder_of_drawings(scene);
  }
  step.expect_as_its_row_says(method, scene.call(method.name, arguments));
  if (!step.was_reached()) return false;
  if (scene.application().Documents().Count() > 0) {
    EXPECT_FALSE(scene.run("GetNOLayer", "0").failure) << "the host is as usable as before";
    EXPECT_TRUE(scene.drawing().check().empty());
  }
  return true;
}

TEST(FaultSweep, OnTheEmbeddedHost) {
  for (const Case& tried : cases) {
    const Method& method = *find_method(tried.method);
    sweep(tried.method, [&](int n) { return is_reached(tried, method, n); });
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace velmar
