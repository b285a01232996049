#pragma once

namespace velmar::com {

/// From now on this thread's reference to the host is let go while COM is still alive on the
/// thread: when the thread leaves COM, or earlier by stop_watching_thread(). Asking twice is asking
/// once.
void watch_thread();

/// Lets this thread's reference to the host go; the thread is no longer watched.
void stop_watching_thread();

/// Whether a thread still has to be told: until then the DLL must stay loaded.
bool any_thread_is_watched();

}  // namespace velmar::com
