#include "drawing/disk_flush.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace velmar::drawing {

bool flush_to_disk(const std::filesystem::path& path) {
  const int file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC);
  if (file < 0) return false;
  const bool flushed = ::fsync(file) == 0 || errno == EINVAL;  // that of a device with no disk
  return ::close(file) == 0 && flushed;
}

}  // namespace velmar::drawing
