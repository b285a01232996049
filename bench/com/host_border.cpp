// Calls per second through the host adapter: to the embedded host in the same process, and to
// velmar-host where VELMAR_HOST names it.
//
//   velmar_host_border DRAWING.dxf

#include <chrono>
#include <cstdio>
#include <filesystem>

#include "com/adapter/running_host.h"
#include "com/automation/apartment.h"
#include "com/automation/failure_crossing.h"
#include "com/host_server/served_objects.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"
#include "host/document.h"

namespace {

using namespace velmar;
using Clock = std::chrono::steady_clock;

/// Repeats an action of `calls` calls for about a second.
template <class Action>
void measure(const char* what, int calls, Action action) {
  const auto begin = Clock::now();
  double seconds = 0;
  long done = 0;
  while (seconds < 1) {
    action();
    done += calls;
    seconds = std::chrono::duration<double>(Clock::now() - begin).count();
  }
  std::printf("  %-40s %12.0f calls/s\n", what, static_cast<double>(done) / seconds);
}

void measure_all(const char* where, const host::Application& application) {
  std::printf("%s\n", where);
  const host::Document document = application.ActiveDocument();
  const host::ModelSpace space = document.ModelSpace();
  const host::Entity entity = space.Item(0);
  measure("get of one entity", 1, [&] { entity.Layer(); });
  measure("put of one entity", 1, [&] { entity.Color(3); });
  measure("Application.ActiveDocument.ModelSpace", 2,
          [&] { application.ActiveDocument().ModelSpace(); });
  const int count = space.Count();
  measure("walk, one get each", 2 * count, [&] {
    for (const host::Entity& each : space) each.Layer();
  });
}

void run(const std::filesystem::path& drawing) {
  const com::Apartment apartment;
  embedded::ScriptedInput input;
  const auto host = embedded::start(input, {{drawing}});
  const auto served = std::make_shared<com::ServedObjects>();
  measure_all("embedded host without automation", host::Application(host));
  measure_all("in process", host::Application(std::make_shared<com::DispatchObject>(
                                served->serve(host), std::make_shared<com::Connection>())));
  if (com::host_program() != "Velmar.Application") return;
  const host::HostApplication program(com::host_factory()());
  program.Application().Documents().Open(drawing.string());
  measure_all("velmar-host", program.Application());
}

}  // namespace

int main(int count, char** words) {
  if (count != 2) return 2;
  try {
    run(std::filesystem::absolute(words[1]));
    return 0;
  } catch (...) {
    std::fprintf(stderr, "%s\n", com::caught().description.c_str());
    return 1;
  }
}
