#include "cli/interrupt.h"

#include <atomic>
#include <csignal>

#include "embedded/errors.h"
#include "host/watched_object.h"

namespace velmar::cli {
namespace {

std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free);  // a signal handler may use it

extern "C" void note_interrupt(int) {
  interrupted = true;
  std::signal(SIGINT, note_interrupt);  // some systems forget it when it is called
}

extern "C" void note_first(int) {
  interrupted = true;
  std::signal(SIGINT, SIG_DFL);
}

class Interrupts : public host::Watch {
 public:
  void before(Step) override {
    if (!was_interrupted()) return;
    throw embedded::failure(embedded::HostError::cancelled, "The command was cancelled.");
  }
};

}  // namespace

void note_interrupts() { std::signal(SIGINT, note_interrupt); }
void note_first_interrupt() { std::signal(SIGINT, note_first); }
void end_on_interrupt() { std::signal(SIGINT, SIG_DFL); }

bool was_interrupted() { return interrupted; }

void forget_interrupt() { interrupted = false; }

const std::atomic<bool>& interruption() { return interrupted; }

std::shared_ptr<host::Object> interruptible(std::shared_ptr<host::Object> object) {
  return host::watched(std::move(object), std::make_shared<Interrupts>());
}

}  // namespace velmar::cli
