#include "drawing/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "drawing/error.h"

namespace velmar::drawing {
namespace {

/// Whether the path still leads to the open file; who had the lock before may have replaced it.
bool leads_to(const std::filesystem::path& path, int file) {
  struct stat at_path {};
  struct stat opened {};
  return ::stat(path.c_str(), &at_path) == 0 && ::fstat(file, &opened) == 0 &&
         at_path.st_dev == opened.st_dev && at_path.st_ino == opened.st_ino;
}

}  // namespace

FileLock::FileLock(const std::filesystem::path& path) {
  using namespace std::chrono_literals;
  constexpr std::chrono::milliseconds pause = 10ms, patience = 30s;
  for (std::chrono::milliseconds waited{}; waited < patience;) {
    // Not blocking, so that a pipe is not waited for.
    file_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file_ < 0) return;
    const bool locked = ::flock(file_, LOCK_EX | LOCK_NB) == 0;
    if (!locked && errno != EWOULDBLOCK && errno != EINTR) return;  // a file system without locks
    if (locked && leads_to(path, file_)) return;
    ::close(file_);
    file_ = -1;
    if (locked) continue;
    std::this_thread::sleep_for(pause);
    waited += pause;
  }
  throw Error(path.string() + ": is being saved by another program; nothing was saved. Try again");
}

FileLock::~FileLock() {
  if (file_ >= 0) ::close(file_);
}

}  // namespace velmar::drawing
