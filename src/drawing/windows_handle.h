#pragma once

#include <cstdint>
#include <string>

namespace velmar::drawing {

/// Owns a handle of the Win32 API, which closes with it.
class WindowsHandle {
 public:
  explicit WindowsHandle(void* handle) : handle_(handle) {}
  WindowsHandle(const WindowsHandle&) = delete;
  WindowsHandle& operator=(const WindowsHandle&) = delete;
  ~WindowsHandle();
  void* get() const { return handle_; }
  /// Not INVALID_HANDLE_VALUE.
  bool valid() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

 private:
  void* handle_;
};

/// What the system says of the calling thread's last error.
std::string last_windows_error();

}  // namespace velmar::drawing
