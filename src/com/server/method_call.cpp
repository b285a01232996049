#include "com/server/method_call.h"

#include <algorithm>

#include "com/automation/failure_crossing.h"
#include "com/server/thread_watch.h"
#include "component/method_table.h"

namespace velmar::com {

Outcome call_method(VelmarObject& object, const Method& method, std::span<basic::Value> arguments) {
  const ComPtr<IUnknown> alive = object.identity();
  watch_thread();
  Outcome outcome;
  try {
    outcome.result = call(object.velmar(), method, arguments);
  } catch (...) {
    outcome.failure = caught();
  }
  return outcome;
}

const Method* method_of(DISPID id) {
  const auto row =
      std::ranges::lower_bound(methods(), static_cast<std::uint32_t>(id), {}, &Method::dispatch_id);
  return row != methods().end() && row->dispatch_id == static_cast<std::uint32_t>(id) ? &*row
                                                                                      : nullptr;
}

}  // namespace velmar::com
