#include "batch/folder_files.h"

#include "basic/letter_case.h"

namespace velmar {
namespace {

/// What follows the last dot of the file's name, without the dot.
std::string_view extension_of(std::string_view path) {
  const std::string_view name = path.substr(path.find_last_of("/\\") + 1);
  const std::size_t dot = name.rfind('.');
  return dot == name.npos ? std::string_view() : name.substr(dot + 1);
}

}  // namespace

std::vector<std::string> files_of_type(const System& system, std::string_view folder,
                                       std::string_view extension) {
  std::vector<std::string> files = system.files(folder);
  std::erase_if(files, [&](const std::string& path) {
    return basic::upper(extension_of(path)) != extension;
  });
  return files;
}

}  // namespace velmar
