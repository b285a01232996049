#pragma once

#include <cstdint>

namespace velmar::system {

/// A signed number, so that it turns negative after 25 days.
std::int32_t milliseconds_since_start();

/// Handles the window messages of the calling thread that have come in, then lets others run.
void let_events_be_handled();

}  // namespace velmar::system
