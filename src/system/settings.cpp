#include "system/settings.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "basic/failure.h"
#include "system/settings_file.h"
#include "system/user_folders.h"

namespace velmar::system {
namespace {

namespace fs = std::filesystem;

std::string text_of(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

[[noreturn]] void fail() { throw basic::Failure(basic::path_file_access); }

/// One writer at a time, so that none loses what another one wrote.
class FolderLock {
 public:
  explicit FolderLock(const fs::path& folder)
      : folder_(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (folder_ < 0) fail();
    ::flock(folder_, LOCK_EX);
  }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  ~FolderLock() { ::close(folder_); }

 private:
  int folder_;
};

/// Beside the old file, then in its place: whatever fails, the old one is whole.
void replace(const fs::path& path, const std::string& text) {
  std::string temporary = path.string() + ".XXXXXX";
  const int file = ::mkostemp(temporary.data(), O_CLOEXEC);
  if (file < 0) fail();
  const auto size = static_cast<ssize_t>(text.size());
  const bool written = ::write(file, text.data(), text.size()) == size && ::fsync(file) == 0;
  if (::close(file) == 0 && written && ::rename(temporary.c_str(), path.c_str()) == 0) return;
  ::unlink(temporary.c_str());
  fail();
}

}  // namespace

std::string read_setting(const SettingName& name) {
  return SettingsFile(text_of(configuration_folder() / "settings.ini")).get(name);
}

void write_setting(const SettingName& name, std::string_view value) {
  const fs::path folder = configuration_folder();
  std::error_code error;
  fs::create_directories(folder, error);
  if (error) fail();
  const FolderLock lock(folder);
  fs::path path = folder / "settings.ini";
  if (const fs::path real = fs::canonical(path, error); !error) path = real;  // through a link
  std::string before;
  if (fs::exists(path, error)) {
    if (::access(path.c_str(), R_OK | W_OK) != 0) fail();
    before = text_of(path);
  }
  SettingsFile settings(before);
  settings.set(name, value);
  replace(path, settings.text());
}

}  // namespace velmar::system
