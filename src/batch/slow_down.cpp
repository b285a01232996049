#include "basic/rounding.h"
#include "component/velmar16.h"

namespace velmar {

void Velmar16::SlowDown(std::int32_t& MilliSeconds) {
  const double start = system().tick_count();
  const std::int32_t end = basic::to_int32(start + MilliSeconds);
  while (end > system().tick_count()) system().process_events();
}

}  // namespace velmar
