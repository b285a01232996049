#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>

namespace velmar::fuzz {

/// A folder of this process alone, in which it works from now on; removed at its end.
class WorkFolder {
 public:
  WorkFolder()
      : path_(std::filesystem::temp_directory_path() /
              ("velmar-fuzz-" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(path_);
    std::filesystem::current_path(path_);
  }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;
  ~WorkFolder() {
    std::error_code error;
    std::filesystem::current_path("/", error);
    std::filesystem::remove_all(path_, error);
  }

  void clear() const {
    for (const auto& entry : std::filesystem::directory_iterator(path_)) {
      std::filesystem::remove_all(entry.path());
    }
  }
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace velmar::fuzz
