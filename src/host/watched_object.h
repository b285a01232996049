#pragma once

#include <memory>

#include "host/object.h"

namespace velmar::host {

/// Sees the steps taken on host objects before they are taken; one that throws keeps the step from
/// happening.
class Watch {
 public:
  enum class Step { get, put, call, enumerate, next };

  virtual ~Watch() = default;
  virtual void before(Step step) = 0;
};

/// The object, with every step on it reported to `watch`, and so for all objects that come out of
/// it: results, out-arguments, items of a walk. Handed back as an argument such an object arrives
/// as the host's own.
std::shared_ptr<Object> watched(std::shared_ptr<Object> object, std::shared_ptr<Watch> watch);

}  // namespace velmar::host
