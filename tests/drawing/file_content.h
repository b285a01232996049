#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace velmar::drawing {

inline std::string contents(const std::filesystem::path& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return bytes.str();
}

}  // namespace velmar::drawing
