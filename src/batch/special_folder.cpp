#include "batch/special_folder.h"

#include "basic/failure.h"

namespace velmar {

std::string special_folder(const System& system, std::int32_t number) {
  std::string path = system.special_folder(number);
  if (path.empty()) {
    throw basic::Failure(basic::application_defined, "SpecialFolder",
                         "The folder path could not be detected");
  }
  return path;
}

}  // namespace velmar
