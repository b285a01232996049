#include <windows.h>

#include "drawing/disk_flush.h"
#include "drawing/windows_handle.h"

namespace velmar::drawing {

bool flush_to_disk(const std::filesystem::path& path) {
  const WindowsHandle file(::CreateFileW(path.c_str(), GENERIC_WRITE,
                                         FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                                         FILE_ATTRIBUTE_NORMAL, nullptr));
  return file.valid() && ::FlushFileBuffers(file.get());
}

}  // namespace velmar::drawing
