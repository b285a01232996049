#include <windows.h>

#include <algorithm>
#include <string>

#include "basic/utf16.h"
#include "cli/console.h"
#include "cli/printable.h"
#include "drawing/error.h"
#include "drawing/windows_handle.h"

namespace velmar::cli {
namespace {

// The console takes characters and files take bytes, without carriage returns added to either.
// False: the last error tells why.
bool write(DWORD standard, std::string_view text) {
  const HANDLE to = ::GetStdHandle(standard);
  DWORD ignored = 0;
  const bool is_console = ::GetConsoleMode(to, &ignored) != 0;
  const auto write_all = [&](const auto& units, auto write_some) {
    constexpr std::size_t at_once = 8192;  // what every console takes
    for (std::size_t done = 0; done < units.size();) {
      DWORD count = 0;
      const std::size_t rest = std::min(at_once, units.size() - done);
      if (!write_some(to, units.data() + done, static_cast<DWORD>(rest), &count, nullptr)) {
        return false;
      }
      done += count;
    }
    return true;
  };
  return is_console ? write_all(basic::to_utf16(printable_lines(text)), ::WriteConsoleW)
                    : write_all(text, ::WriteFile);
}

}  // namespace

void print(std::string_view text) {
  if (write(STD_OUTPUT_HANDLE, text)) return;
  const DWORD why = ::GetLastError();
  if (why == ERROR_BROKEN_PIPE || why == ERROR_NO_DATA) return;
  throw drawing::Error("standard output cannot be written: " + drawing::last_windows_error());
}

void complain(std::string_view message) { write(STD_ERROR_HANDLE, std::string(message) + "\n"); }

void install_signal_handlers() {}

}  // namespace velmar::cli
