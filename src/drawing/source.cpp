#include "drawing/source.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "drawing/error.h"

namespace velmar::drawing {
namespace {

FileStamp stamp_from(const struct stat& status) {
  return {status.st_dev, status.st_ino, static_cast<std::uint64_t>(status.st_size),
          status.st_mtim.tv_sec * 1'000'000'000LL + status.st_mtim.tv_nsec};
}

[[noreturn]] void refuse(const std::filesystem::path& path, const std::string& why) {
  throw Error(path.string() + ": " + why);
}

/// An open file, mapped as a whole.
class MappedFile {
 public:
  /// Opens without blocking, so that a pipe is refused by its kind instead of waited for.
  explicit MappedFile(const std::filesystem::path& path)
      : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (descriptor_ < 0) refuse(path, std::string("cannot be read: ") + std::strerror(errno));
  }
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;
  ~MappedFile() {
    if (start_ != MAP_FAILED) ::munmap(start_, size_);
    if (descriptor_ >= 0) ::close(descriptor_);
  }

  struct stat status() const {
    struct stat status {};
    ::fstat(descriptor_, &status);
    return status;
  }
  std::string_view map(std::size_t size) {
    size_ = size;
    start_ = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, descriptor_, 0);
    return start_ == MAP_FAILED ? std::string_view()
                                : std::string_view(static_cast<const char*>(start_), size);
  }

 private:
  int descriptor_;
  void* start_ = MAP_FAILED;
  std::size_t size_ = 0;
};

}  // namespace

std::optional<FileStamp> stamp_of(const std::filesystem::path& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return stamp_from(status);
}

Source Source::map(const std::filesystem::path& path) {
  const auto file = std::make_shared<MappedFile>(path);
  const struct stat status = file->status();
  if (S_ISDIR(status.st_mode)) refuse(path, "is a folder, not a drawing");
  if (!S_ISREG(status.st_mode)) refuse(path, "is no regular file");
  if (status.st_size == 0) refuse(path, "is empty: expected a DXF drawing");
  Source source;
  source.bytes_ = file->map(static_cast<std::size_t>(status.st_size));
  if (source.bytes_.empty()) {
    refuse(path, std::string("cannot be mapped: ") + std::strerror(errno));
  }
  source.stamp_ = stamp_from(status);
  source.stamp_now_ = [file] { return stamp_from(file->status()); };
  source.owner_ = file;
  return source;
}

}  // namespace velmar::drawing
