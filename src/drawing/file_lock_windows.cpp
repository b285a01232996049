#include <windows.h>

#include <functional>
#include <string>

#include "drawing/error.h"
#include "drawing/file_lock.h"

namespace velmar::drawing {

// A mutex of the user's session, called after the file: while a file itself is open it cannot be
// replaced.
FileLock::FileLock(const std::filesystem::path& path) {
  constexpr DWORD patience_ms = 30'000;
  std::wstring name = path.wstring();
  ::CharLowerW(name.data());
  name = L"Local\\Velmar saves " + std::to_wstring(std::hash<std::wstring>()(name));
  const HANDLE mutex = ::CreateMutexW(nullptr, FALSE, name.c_str());
  if (!mutex) return;
  if (::WaitForSingleObject(mutex, patience_ms) == WAIT_TIMEOUT) {
    ::CloseHandle(mutex);
    throw Error(path.string() +
                ": is being saved by another program; nothing was saved. Try again");
  }
  mutex_ = reinterpret_cast<std::intptr_t>(mutex);
}

FileLock::~FileLock() {
  if (!mutex_) return;
  const HANDLE mutex = reinterpret_cast<HANDLE>(mutex_);
  ::ReleaseMutex(mutex);
  ::CloseHandle(mutex);
}

}  // namespace velmar::drawing
