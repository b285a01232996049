// How many steps a command takes on its host for each entity of model space: over automation each
// is a call, from another process a round trip.
//
//   velmar_host_calls DRAWING.dxf METHOD [ANSWER...] [-- ARGUMENT...]

#include <cstdio>
#include <string>
#include <vector>

#include "basic/failure.h"
#include "component/method_table.h"
#include "component/session.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"
#include "host/counting_object.h"

namespace {

using namespace velmar;

struct Call {
  std::string drawing, method;
  std::vector<std::string> answers;
  std::vector<basic::Value> arguments;
};

Call read(int count, char** words) {
  Call call{words[1], words[2], {}, {}};
  bool arguments = false;
  for (int i = 3; i < count; ++i) {
    const std::string word = words[i];
    if (word == "--")
      arguments = true;
    else if (arguments)
      call.arguments.emplace_back(word);
    else
      call.answers.push_back(word);
  }
  return call;
}

int run(Call call) {
  const Method* method = find_method(call.method);
  if (!method) {
    std::fprintf(stderr, "no method %s\n", call.method.c_str());
    return 2;
  }
  embedded::ScriptedInput input(call.answers);
  const auto host = embedded::start(input, {{call.drawing}});
  const auto count = std::make_shared<host::StepCount>();
  install_host_factory([&] { return host::counting(host, count); });
  const int entities = model_space().Count();
  *count = {};
  Velmar16 velmar;
  velmar::call(velmar, *method, call.arguments);
  release_host_application();

  std::printf("%s: %d entities; get %d, put %d, call %d, walk %d, next %d; %.2f an entity\n",
              call.method.c_str(), entities, count->gets, count->puts, count->calls, count->walks,
              count->walk_steps, static_cast<double>(count->total()) / entities);
  return 0;
}

}  // namespace

int main(int count, char** words) {
  if (count < 3) {
    std::fputs("velmar_host_calls DRAWING.dxf METHOD [ANSWER...] [-- ARGUMENT...]\n", stderr);
    return 2;
  }
  try {
    return run(read(count, words));
  } catch (const basic::Failure& failure) {
    std::fprintf(stderr, "%s\n", failure.description.c_str());
    return 1;
  }
}
