#include "cli/build_facts.h"

#include <CLI/Version.hpp>
#include <nlohmann/json.hpp>

#include "embedded/host.h"

#ifndef VELMAR_REVISION
#define VELMAR_REVISION ""
#endif
#ifndef VELMAR_SYSTEM
#define VELMAR_SYSTEM "unknown system"
#endif
#ifndef VELMAR_BUILD_TYPE
#define VELMAR_BUILD_TYPE ""
#endif

namespace velmar::cli {
namespace {

std::string compiler() {
#if defined(__clang__)
  return "clang " __clang_version__;
#elif defined(__GNUC__)
  return "g++ " __VERSION__;
#else
  return "unknown compiler";
#endif
}

std::string json_version() {
  return std::to_string(NLOHMANN_JSON_VERSION_MAJOR) + "." +
         std::to_string(NLOHMANN_JSON_VERSION_MINOR) + "." +
         std::to_string(NLOHMANN_JSON_VERSION_PATCH);
}

}  // namespace

std::string version_text() {
  std::string text = "velmar " + std::string(embedded::velmar_version) + "\n";
  const std::string revision = VELMAR_REVISION, build = VELMAR_BUILD_TYPE;
  if (!revision.empty()) text += "revision  " + revision + "\n";
  text += "compiler  " + compiler() + (build.empty() ? "" : ", " + build) + "\n";
  text += "system    " VELMAR_SYSTEM "\n";
  return text + "libraries CLI11 " CLI11_VERSION ", JSON for Modern C++ " + json_version();
}

}  // namespace velmar::cli
