// What a command takes that asks each entity of model space, and finds nothing or little to do,
// beside what opening the drawing takes. Processor time of the best of several rounds, each on the
// drawing opened anew.
//
//   velmar_walks DRAWING.dxf [ROUNDS [METHOD]]

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <string>
#include <vector>

#include "basic/failure.h"
#include "component/method_table.h"
#include "component/session.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"
#include "host/document.h"

namespace {

using namespace velmar;
using basic::Value;

struct Walk {
  const char* method;
  std::vector<Value> arguments = {};
  std::vector<std::string> answers = {};
  std::string edited = {};  // a handle: gets a linetype that nothing else has, before the time runs
};

/// What the user picks.
struct Picks {
  std::string text, line;  // handles
};

std::vector<Walk> walks(const Picks& picks) {
  return {{"GetNOLayer", {"G-GRID"}},
          {"GetNType", {"E"}},
          {"GetNTypeLayer", {"E", "A-WALL"}},
          {"ReplaceT", {"no such text", "another"}},
          {"ReplaceTL", {"no such text", "another", "A-ANNO-NOTE"}},
          {"RotateAllText", {}, {"#" + picks.text, "0"}},
          {"CountInText", {}, {"zzz"}},
          {"ReplaceInT", {"zzzq", "y", ""}},
          {"Replace", {"no such layer"}},
          {"ColDel", {std::int16_t{256}, "L"}},
          {"ColDelLayer", {std::int16_t{3}, "no such layer", "L"}},
          {"ColorToLayer", {std::int32_t{300}, "A-WALL", "L"}},
          {"ColLayerObj", {std::int16_t{3}, "no such layer", "L"}},
          {"ReplaceLineByType", {}, {"#" + picks.line, "1"}, picks.line},
          {"GetTotalLength", {}, {"#" + picks.line}},
          {"GetTotalArea", {}, {"#" + picks.line}},
          {"Delete_OLE"}};
}

double processor_seconds() {
  timespec now{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

struct Best {
  double open = std::numeric_limits<double>::infinity(), walk = open;
};

void run(const std::string& drawing, const Walk& walk, Best& best) {
  embedded::ScriptedInput input(walk.answers);
  const double begin = processor_seconds();
  const auto host = embedded::start(input, {{drawing}});
  best.open = std::min(best.open, processor_seconds() - begin);
  install_host_factory([&] { return host; });
  if (!walk.edited.empty()) entity<host::Line>(walk.edited).Linetype("ByBlock");
  const double started = processor_seconds();
  std::vector<Value> arguments = walk.arguments;
  try {
    Velmar16 velmar;
    call(velmar, *find_method(walk.method), arguments);
  } catch (const basic::Failure& failure) {
    std::fprintf(stderr, "%s: %s\n", walk.method, failure.description.c_str());
  }
  best.walk = std::min(best.walk, processor_seconds() - started);
  release_host_application();
}

Picks picks_in(const std::string& drawing) {
  embedded::ScriptedInput input;
  const auto host = embedded::start(input, {{drawing}});
  install_host_factory([&] { return host; });
  Picks picks;
  for (const host::Entity& entity : model_space()) {
    const std::string kind = entity.ObjectName();
    if (kind == "AcDbText") picks.text = entity.Handle();
    if (kind == "AcDbLine") picks.line = entity.Handle();
    if (!picks.text.empty() && !picks.line.empty()) break;
  }
  release_host_application();
  return picks;
}

}  // namespace

int main(int count, char** words) {
  if (count < 2) {
    std::fputs("velmar_walks DRAWING.dxf [ROUNDS [METHOD]]\n", stderr);
    return 2;
  }
  const int rounds = count > 2 ? std::atoi(words[2]) : 5;
  for (const Walk& walk : walks(picks_in(words[1]))) {
    if (count > 3 && std::string(words[3]) != walk.method) continue;
    Best best;
    for (int i = 0; i < rounds; ++i) run(words[1], walk, best);
    std::printf("%-16s %7.1f ms, opening %7.1f ms: %.2f of it\n", walk.method, 1e3 * best.walk,
                1e3 * best.open, best.walk / best.open);
  }
}
