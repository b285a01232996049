#pragma once

#include <filesystem>
#include <string>

namespace velmar::cli {

struct Outcome {
  std::string out, err;
  int code = -1;
};

/// An empty folder that is deleted at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

std::string read_file(const std::filesystem::path& path);

/// Runs a shell script in a folder, as a user who has neither settings nor data. It finds the
/// program as `velmar` and the drawings under $CORPUS. VELMAR_PROGRAM_FOLDER names the folder of
/// another `velmar` than the one that was built with the tests.
Outcome run_script(const std::filesystem::path& script, const std::filesystem::path& folder);

}  // namespace velmar::cli
