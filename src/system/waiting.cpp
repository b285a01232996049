#include "system/waiting.h"

#include <time.h>

#include <chrono>
#include <thread>

namespace velmar::system {

std::int32_t milliseconds_since_start() {
  timespec now{};
  ::clock_gettime(CLOCK_MONOTONIC, &now);
  return static_cast<std::int32_t>(now.tv_sec * 1000LL + now.tv_nsec / 1'000'000);
}

void let_events_be_handled() { std::this_thread::sleep_for(std::chrono::milliseconds(1)); }

}  // namespace velmar::system
