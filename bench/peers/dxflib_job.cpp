// What of the job dxflib can do: it reads a drawing entity by entity and keeps none, so it sums the
// lines and arcs of one layer, and neither edits nor saves.
//
//   dxflib_job DRAWING.dxf SUM_LAYER [ROUNDS]

#include <dxflib/dl_creationadapter.h>
#include <dxflib/dl_dxf.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

class Sum : public DL_CreationAdapter {
 public:
  explicit Sum(std::string layer) : layer_(std::move(layer)) {}

  void addBlock(const DL_BlockData& block) override {
    in_block_ = block.name.find("*Model_Space") != 0;
  }
  void endBlock() override { in_block_ = false; }
  void addLine(const DL_LineData& line) override {
    if (counts()) length += std::hypot(line.x2 - line.x1, line.y2 - line.y1, line.z2 - line.z1);
  }
  void addArc(const DL_ArcData& arc) override {
    double sweep = std::fmod(arc.angle2 - arc.angle1, 360.0);
    if (sweep <= 0) sweep += 360;
    if (counts()) length += sweep * M_PI / 180 * arc.radius;
  }

  double length = 0;

 private:
  bool counts() { return !in_block_ && getAttributes().getLayer() == layer_; }

  std::string layer_;
  bool in_block_ = false;
};

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) return 2;
  const std::string path = arguments[1];
  const double megabytes = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
  for (int round = count > 3 ? std::atoi(arguments[3]) : 1; round > 0; --round) {
    const auto begin = std::chrono::steady_clock::now();
    Sum sum(arguments[2]);
    DL_Dxf dxf;
    if (!dxf.in(path, &sum)) return 1;
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    std::printf("load and sum %.0f ms (%.0f MB/s); length %.4f\n", took.count() * 1e3,
                megabytes / took.count(), sum.length);
  }
  return 0;
}
