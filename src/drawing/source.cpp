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

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  int number() const { return number_; }

 private:
  int number_;
};

}  // namespace

std::optional<FileStamp> stamp_of(const std::filesystem::path& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return stamp_from(status);
}

Source Source::map(const std::filesystem::path& path) {
  // Not blocking, so that a pipe is refused below instead of waited for.
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (file.number() < 0) refuse(path, std::string("cannot be read: ") + std::strerror(errno));
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) refuse(path, std::strerror(errno));
  if (S_ISDIR(status.st_mode)) refuse(path, "is a folder, not a drawing");
  if (!S_ISREG(status.st_mode)) refuse(path, "is no regular file");
  if (status.st_size == 0) refuse(path, "is empty: expected a DXF drawing");
  const auto size = static_cast<std::size_t>(status.st_size);
  void* const start =
      ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, file.number(), 0);
  if (start == MAP_FAILED) refuse(path, std::string("cannot be mapped: ") + std::strerror(errno));
  Source source;
  source.owner_ = std::shared_ptr<const void>(
      start, [size](const void* mapped) { ::munmap(const_cast<void*>(mapped), size); });
  source.bytes_ = {static_cast<const char*>(start), size};
  source.stamp_ = stamp_from(status);
  return source;
}

}  // namespace velmar::drawing
