// The job of drawing_job.cpp with dime: open, sum lines and arcs of one layer, turn the texts of
// another, save.
//
//   dime_job DRAWING.dxf SUM_LAYER TEXT_LAYER [ROUNDS]

#include <dime/Input.h>
#include <dime/Layer.h>
#include <dime/Model.h>
#include <dime/Output.h>
#include <dime/State.h>
#include <dime/entities/Arc.h>
#include <dime/entities/Entity.h>
#include <dime/entities/Line.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point begin) {
  return std::chrono::duration<double>(Clock::now() - begin).count();
}

struct Job {
  const char *sum_layer, *text_layer;
  double length = 0;
  int texts = 0;
};

bool visit(const dimeState* state, dimeEntity* entity, void* data) {
  auto& job = *static_cast<Job*>(data);
  if (state->getCurrentInsert() != nullptr) return true;
  const char* layer = entity->getLayer()->getLayerName();
  if (entity->typeId() == dimeBase::dimeLineType && std::strcmp(layer, job.sum_layer) == 0) {
    auto* line = static_cast<dimeLine*>(entity);
    job.length += (line->getCoords(1) - line->getCoords(0)).length();
  } else if (entity->typeId() == dimeBase::dimeArcType && std::strcmp(layer, job.sum_layer) == 0) {
    auto* arc = static_cast<dimeArc*>(entity);
    double sweep = std::fmod(arc->getEndAngle() - arc->getStartAngle(), 360.0);
    if (sweep <= 0) sweep += 360;
    job.length += sweep * M_PI / 180 * arc->getRadius();
  } else if (std::strcmp(entity->getEntityName(), "TEXT") == 0 &&
             std::strcmp(layer, job.text_layer) == 0) {
    dimeParam rotation;
    const bool has = entity->getRecord(50, rotation);
    rotation.double_data = (has ? rotation.double_data : 0) + 0.25 * 180 / M_PI;
    entity->setRecord(50, rotation);
    ++job.texts;
  }
  return true;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 4) return 2;
  const std::string path = arguments[1], saved = path + ".out.dxf";
  const double megabytes = static_cast<double>(std::filesystem::file_size(path)) / 1e6;
  for (int round = count > 4 ? std::atoi(arguments[4]) : 1; round > 0; --round) {
    auto begin = Clock::now();
    dimeInput input;
    dimeModel model;
    if (!input.setFile(path.c_str()) || !model.read(&input)) return 1;
    const double load = seconds_since(begin);
    begin = Clock::now();
    Job job{arguments[2], arguments[3]};
    model.traverseEntities(visit, &job, false, false, true);
    const double work = seconds_since(begin);
    begin = Clock::now();
    dimeOutput output;
    if (!output.setFilename(saved.c_str()) || !model.write(&output)) return 1;
    const double save = seconds_since(begin);
    const double all = load + work + save;
    std::printf(
        "load %.1f ms (%.0f MB/s), sum and turn %.1f ms, save %.1f ms (%.0f MB/s), job %.1f ms "
        "(%.0f MB/s); "
        "length %.3f, %d texts\n",
        load * 1e3, megabytes / load, work * 1e3, save * 1e3, megabytes / save, all * 1e3,
        megabytes / all, job.length, job.texts);
    std::filesystem::remove(saved);
  }
}
