// Several threads, each with a host and a drawing of its own, give what one after the other gives.
// The preset "threads" runs this under a thread sanitizer.

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <thread>
#include <vector>

#include "component/method_table.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "embedded/host.h"
#include "embedded/scripted_input.h"

namespace velmar {
namespace {

using basic::Value;

constexpr std::array drawings{"ezdxf/1_polylines.dxf", "ezdxf/text.dxf",
                              "ezdxf/multi_insert_with_attribs.dxf", "ezdxf/hatches_2.dxf",
                              "acadsharp/sample_AC1009_binary.dxf"};

// A pointer, as objects with destructors are gone too early where Windows ends a thread.
thread_local const std::shared_ptr<embedded::Application>* this_threads_application = nullptr;

void call_method(Velmar16& velmar, std::string_view name, std::vector<Value> arguments = {}) {
  try {
    call(velmar, *find_method(name), arguments);
  } catch (const basic::Failure&) {  // some drawings have nothing for some methods
  }
}

/// Measures each entity, which reads fonts and styles, then edits with methods and undoes a step.
std::string result_for(const char* drawing) {
  embedded::ScriptedInput user;
  const std::filesystem::path file = std::filesystem::path(VELMAR_CORPUS) / drawing;
  const auto application = embedded::start(user, {.drawings = {file}, .history = true});
  this_threads_application = &application;
  release_host_application();
  std::string result;
  double total = 0;
  for (const host::Entity& entity : model_space()) {
    Value low, high;
    try {
      entity.call(host::Member::GetBoundingBox, low, high);
      total += high.if_is<basic::Doubles>()->at(0);
    } catch (const basic::Failure&) {
    }
  }
  {
    Velmar16 velmar;
    call_method(velmar, "GetTotalLength");
    call_method(velmar, "Replace", {"0", true});
    call_method(velmar, "ReplaceInT", {"e", "ee"});
    call_method(velmar, "Alignement");
    drawing::Drawing& edited = application->active()->drawing;
    edited.end_step("first");
    call_method(velmar, "ColDel", {std::int16_t{7}, "L"});
    edited.purge();
    edited.end_step("second");
    result = edited.bytes();
    edited.undo();
    result += edited.bytes() + std::to_string(total);
  }
  release_host_application();
  return result;
}

TEST(Threads, WithADrawingEachDoNotDisturbOneAnother) {
  install_host_factory([] { return *this_threads_application; });
  std::array<std::string, 2 * drawings.size()> found;
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < found.size(); ++i) {
    threads.emplace_back([&, i] { found[i] = result_for(drawings[i % drawings.size()]); });
  }
  for (std::thread& thread : threads) thread.join();
  for (std::size_t i = 0; i < found.size(); ++i) {
    EXPECT_EQ(found[i], result_for(drawings[i % drawings.size()])) << drawings[i % drawings.size()];
  }
}

}  // namespace
}  // namespace velmar
