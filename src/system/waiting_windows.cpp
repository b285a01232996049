#include <windows.h>

#include "system/waiting.h"

namespace velmar::system {

std::int32_t milliseconds_since_start() { return static_cast<std::int32_t>(::GetTickCount()); }

void let_events_be_handled() {
  MSG message{};
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {  // for the loop of whoever owns the thread
      ::PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  ::Sleep(1);
}

}  // namespace velmar::system
