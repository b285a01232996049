#pragma once

#include <windows.h>

#include <string>

#include "com/automation/bstr.h"

namespace velmar::com {

/// A program that a test started; what still runs at the end is ended.
class HostProcess {
 public:
  explicit HostProcess(const std::string& command) {
    std::wstring line = to_wide(command);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    started_ = CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                              &startup, &process_);
  }
  HostProcess(const HostProcess&) = delete;
  HostProcess& operator=(const HostProcess&) = delete;
  ~HostProcess() {
    if (!started_) return;
    if (!ends_within(0)) TerminateProcess(process_.hProcess, 1);
    CloseHandle(process_.hProcess);
    CloseHandle(process_.hThread);
  }

  bool ends_within(unsigned seconds) const {
    return started_ && WaitForSingleObject(process_.hProcess, seconds * 1000) == WAIT_OBJECT_0;
  }
  /// Of a program that has ended.
  int exit_code() const {
    DWORD code = 99;
    GetExitCodeProcess(process_.hProcess, &code);
    return static_cast<int>(code);
  }

 private:
  PROCESS_INFORMATION process_{};
  bool started_ = false;
};

/// The exit code of a program that is waited for.
inline int run(const std::string& command) {
  const HostProcess process(command);
  return process.ends_within(60) ? process.exit_code() : -1;
}

}  // namespace velmar::com
