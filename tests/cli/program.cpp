#include "cli/program.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <fstream>
#include <sstream>

namespace velmar::cli {

namespace fs = std::filesystem;

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (fs::temp_directory_path() / "velmar-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string read_file(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

Outcome run_script(const fs::path& script, const fs::path& folder) {
  const TemporaryFolder outputs;
  const char* const other = std::getenv("VELMAR_PROGRAM_FOLDER");
  const fs::path program = other != nullptr ? other : fs::path(VELMAR_PROGRAM).parent_path();
  const std::string user = outputs.path().string();
  const fs::path out = outputs.path() / "out", err = outputs.path() / "err";
  const std::string command = "cd '" + folder.string() + "' && LC_ALL=C XDG_CONFIG_HOME='" + user +
                              "' XDG_DATA_HOME='" + user + "' CORPUS='" VELMAR_CORPUS "' PATH='" +
                              program.string() + "':\"$PATH\" bash '" + script.string() + "' >'" +
                              out.string() + "' 2>'" + err.string() + "' </dev/null";
  const int status = std::system(command.c_str());
  return {read_file(out), read_file(err), WIFEXITED(status) ? WEXITSTATUS(status) : -1};
}

}  // namespace velmar::cli
