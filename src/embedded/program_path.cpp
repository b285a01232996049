#include "embedded/program_path.h"

namespace velmar::embedded {

std::filesystem::path program_path() {
  std::error_code unknown;
  return std::filesystem::read_symlink("/proc/self/exe", unknown);
}

}  // namespace velmar::embedded
