#pragma once

#include <memory>

#include "basic/failure.h"
#include "host/object.h"

namespace velmar::host {

/// One fault to come: step number `at`, counted from 1 over all objects of the host, fails with
/// `failure`.
struct Fault {
  int at;
  basic::Failure failure;
  int steps_taken = 0;
  bool reached() const { return steps_taken >= at; }
};

/// The host object with the fault in it and in all objects that come out of it. Steps after the
/// fault succeed.
std::shared_ptr<Object> failing(std::shared_ptr<Object> object, std::shared_ptr<Fault> fault);

}  // namespace velmar::host
