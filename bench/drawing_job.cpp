// The everyday job on a large drawing: open it, sum the lines and arcs of one layer with
// GetTotalLength, turn the texts of another layer, save it under another name. Prints what each
// step took, checked against the answers that make_drawing.py wrote beside the drawing.
//
//   velmar_bench DRAWING.dxf [ROUNDS]

#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "component/session.h"
#include "component/velmar16.h"
#include "embedded/application.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"
#include "host/document.h"
#include "host/entities.h"

namespace {

using namespace velmar;
using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point begin) {
  return std::chrono::duration<double>(Clock::now() - begin).count();
}

/// Memory of this process alone, in megabytes: what is not the mapped file.
double private_megabytes() {
  std::ifstream status("/proc/self/status");
  std::string word;
  double kilobytes = 0;
  while (status >> word) {
    if (word == "RssAnon:") status >> kilobytes;
  }
  return kilobytes / 1024;
}

struct Answers {
  std::string sum_layer, text_layer;
  double sum_length = 0;
  int texts = 0;
};

Answers answers_for(const std::string& drawing) {
  const auto facts = nlohmann::json::parse(std::ifstream(drawing + ".json"));
  return {facts["sum_layer"], facts["text_layer"], facts["sum_length"], facts["texts"]};
}

/// The handle of an entity of the layer, for the command's pick.
std::string on_layer(const std::string& layer) {
  for (const host::Entity& candidate : model_space()) {
    if (candidate.is_on(layer)) return candidate.Handle();
  }
  return {};
}

int turn_texts(const std::string& layer) {
  int turned = 0;
  for (const host::Entity& candidate : model_space()) {
    if (!candidate.has_class(host::Text::class_name) || !candidate.is_on(layer)) continue;
    const auto text = host::as<host::Text>(candidate);
    text.Rotation(text.Rotation() + 0.25);
    ++turned;
  }
  return turned;
}

struct Times {
  double load = 0, sum = 0, turn = 0, save = 0;
  double all() const { return load + sum + turn + save; }
};

Times run_job(const std::string& drawing, const Answers& answers, bool& right) {
  Times times;
  const std::string saved = drawing + ".out.dxf";
  std::filesystem::remove(saved);
  embedded::ScriptedInput input;
  auto begin = Clock::now();
  const auto application = embedded::start(input, {{drawing}});
  times.load = seconds_since(begin);
  install_host_factory([application] { return application; });
  release_host_application();

  input.add("#" + on_layer(answers.sum_layer));
  begin = Clock::now();
  Velmar16().GetTotalLength();
  times.sum = seconds_since(begin);
  const auto* said = std::get_if<embedded::Said>(&input.transcript().back());
  const std::string text = said ? said->text : "";
  const double sum = std::atof(text.substr(text.rfind(' ') + 1).c_str());
  right = std::abs(sum - answers.sum_length) < 0.001;

  begin = Clock::now();
  right = turn_texts(answers.text_layer) == answers.texts && right;
  times.turn = seconds_since(begin);
  begin = Clock::now();
  application->documents().front()->drawing.save(saved);
  times.save = seconds_since(begin);
  std::printf("private memory %.1f MB; ", private_megabytes());
  std::filesystem::remove(saved);
  install_host_factory({});
  release_host_application();
  return times;
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) {
    std::fprintf(stderr, "usage: velmar_bench DRAWING.dxf [ROUNDS]\n");
    return 2;
  }
  const std::string drawing = arguments[1];
  const int rounds = count > 2 ? std::atoi(arguments[2]) : 5;
  const Answers answers = answers_for(drawing);
  const double megabytes = static_cast<double>(std::filesystem::file_size(drawing)) / 1e6;
  std::printf("%s: %.1f MB\n", drawing.c_str(), megabytes);
  bool all_right = true;
  for (int round = 0; round < rounds; ++round) {
    bool right = false;
    const Times times = run_job(drawing, answers, right);
    std::printf(
        "load %.1f ms (%.0f MB/s), sum %.1f ms, turn %.1f ms, save %.1f ms (%.0f MB/s), job %.1f "
        "ms "
        "(%.0f MB/s); answers %s\n",
        times.load * 1e3, megabytes / times.load, times.sum * 1e3, times.turn * 1e3,
        times.save * 1e3, megabytes / times.save, times.all() * 1e3, megabytes / times.all(),
        right ? "right" : "WRONG");
    all_right = all_right && right;
  }
  return all_right ? 0 : 1;
}
