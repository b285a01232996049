#pragma once

#include <memory>

#include "host/object.h"

namespace velmar::host {

/// How many steps were taken on a host: over an automation border each is a round trip.
struct StepCount {
  int gets = 0, puts = 0, calls = 0, walks = 0, walk_steps = 0;
  int total() const { return gets + puts + calls + walks + walk_steps; }
};

/// The host object with every step on it, and on all objects that come out of it, counted.
std::shared_ptr<Object> counting(std::shared_ptr<Object> object, std::shared_ptr<StepCount> count);

}  // namespace velmar::host
