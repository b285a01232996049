#pragma once

#include <atomic>
#include <memory>

#include "host/object.h"

namespace velmar::cli {

// Ctrl-C, where it does not end the program.

/// From now on Ctrl-C is noted and does nothing else.
void note_interrupts();
/// From now on Ctrl-C is noted once; the next one ends the program.
void note_first_interrupt();
void end_on_interrupt();
bool was_interrupted();
void forget_interrupt();
/// For who waits for it in another thread.
const std::atomic<bool>& interruption();

/// The host object, whose every step fails as cancelled once Ctrl-C was pressed, and so for all
/// objects that come out of it: a method that skips failing steps comes to its end too.
std::shared_ptr<host::Object> interruptible(std::shared_ptr<host::Object> object);

}  // namespace velmar::cli
