#include "cli/build_facts.h"

#include <CLI/Version.hpp>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

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

/// What was not known when it was built is empty.
std::string with_prefix(std::string_view prefix, std::string_view fact, std::string_view end = "") {
  return fact.empty() ? "" : std::string(prefix).append(fact).append(end);
}

}  // namespace

std::string version_text() {
  std::string text = "velmar " + std::string(embedded::velmar_version) + "\n";
  text += with_prefix("revision  ", VELMAR_REVISION, "\n");
  text += "compiler  " + compiler() + with_prefix(", ", VELMAR_BUILD_TYPE) + "\n";
  text += "system    " VELMAR_SYSTEM "\n";
  return text + "libraries CLI11 " CLI11_VERSION ", JSON for Modern C++ " + json_version();
}

}  // namespace velmar::cli
