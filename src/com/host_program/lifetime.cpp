#include "com/host_program/lifetime.h"

#include <optional>

namespace velmar::com {
namespace {

/// Looks at the clients once in a while.
class Watch {
 public:
  Watch(const ServedObjects& objects, const PublishedApplication& application,
        const Lifetime& lifetime)
      : objects_(objects), application_(application), lifetime_(lifetime) {}

  bool is_over() {
    const ULONGLONG now = GetTickCount64();
    const bool held = objects_.connections() > 0 || application_.locks() > 0;
    if (held) had_client_ = true;
    if (objects_.calls() != calls_) {
      calls_ = objects_.calls();
      last_call_ = now;
      had_client_ = true;
    }
    const ULONGLONG idle = (now - last_call_) / 1000;
    if (idle >= lifetime_.idle_seconds) return true;
    return !held && (had_client_ || idle >= lifetime_.first_client_seconds);
  }

 private:
  const ServedObjects& objects_;
  const PublishedApplication& application_;
  const Lifetime& lifetime_;
  bool had_client_ = false;
  unsigned calls_ = 0;
  ULONGLONG last_call_ = GetTickCount64();
};

}  // namespace

void run_messages(const ServedObjects& objects, const PublishedApplication& application,
                  const Lifetime* lifetime) {
  constexpr UINT between_looks = 500;  // milliseconds
  std::optional<Watch> watch;
  if (lifetime) {
    watch.emplace(objects, application, *lifetime);
    SetTimer(nullptr, 0, between_looks, nullptr);
  }
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
    if (watch && message.message == WM_TIMER && watch->is_over()) return;
  }
}

}  // namespace velmar::com
