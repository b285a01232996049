#include "drawing/file_writer.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "drawing/error.h"

namespace velmar::drawing {
namespace {

constexpr mode_t new_file_mode = 0666;

mode_t mode_of_new_file() {
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return new_file_mode & ~mask;
}

}  // namespace

FileWriter::FileWriter(const std::filesystem::path& target)
    : target_(followed(target)), lock_(target_) {
  struct stat status {};
  replaces_ = ::stat(target_.c_str(), &status) == 0;
  if (replaces_ && !S_ISREG(status.st_mode)) {
    throw Error(target.string() + ": cannot be written: it is no regular file");
  }
  if (replaces_ && ::access(target_.c_str(), W_OK) != 0) refuse("cannot be written");
  std::string name =
      (target_.parent_path() / ("." + target_.filename().string() + ".XXXXXX")).string();
  file_ = ::mkostemp(name.data(), O_CLOEXEC);
  if (file_ < 0) refuse("cannot be written: its folder takes no new file");
  temporary_ = name;
  ::fchmod(file_, replaces_ ? (status.st_mode & 07777) : mode_of_new_file());
}

FileWriter::~FileWriter() {
  if (file_ >= 0) ::close(file_);
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void FileWriter::write(const std::vector<std::string_view>& pieces) {
  constexpr std::size_t at_once = 512;  // below every IOV_MAX
  std::vector<iovec> rest;
  rest.reserve(pieces.size());
  for (const std::string_view piece : pieces) {
    if (!piece.empty()) rest.push_back({const_cast<char*>(piece.data()), piece.size()});
  }
  for (std::size_t next = 0; next < rest.size();) {
    const auto count = std::min(at_once, rest.size() - next);
    ssize_t written = ::writev(file_, &rest[next], static_cast<int>(count));
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) refuse("cannot be written");
    for (auto left = static_cast<std::size_t>(written); left > 0;) {
      const std::size_t taken = std::min(left, rest[next].iov_len);
      rest[next].iov_base = static_cast<char*>(rest[next].iov_base) + taken;
      rest[next].iov_len -= taken;
      left -= taken;
      if (rest[next].iov_len == 0) ++next;
    }
  }
}

void FileWriter::finish() {
  if (replaces_ && ::fsync(file_) != 0) refuse("cannot be written");
  const int closed = ::close(file_);
  file_ = -1;
  if (closed != 0) refuse("cannot be written");
  if (::rename(temporary_.c_str(), target_.c_str()) != 0) refuse("cannot be replaced");
  temporary_.clear();
}

void FileWriter::refuse(const char* doing) const {
  const std::string reason = std::strerror(errno);
  throw Error(target_.string() + ": " + doing + ": " + reason + "; the file is as it was");
}

}  // namespace velmar::drawing
