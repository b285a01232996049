#include "cli/drawing_files.h"

#include <algorithm>
#include <set>

#include "basic/strings.h"
#include "cli/usage_error.h"
#include "drawing/utf8_path.h"

namespace velmar::cli {
namespace {

namespace fs = std::filesystem;

/// Whether `c` is in the set "[...]" that begins at `at`, which moves behind it; an open bracket
/// without an end stands for itself.
bool in_set(std::string_view pattern, std::size_t& at, char c) {
  const std::size_t end = pattern.find(']', at + 2);
  if (end == pattern.npos) return pattern[at++] == c;
  const bool negated = pattern[at + 1] == '!' || pattern[at + 1] == '^';
  bool found = false;
  for (std::size_t i = at + (negated ? 2 : 1); i < end; ++i) {
    if (i + 2 < end && pattern[i + 1] == '-') {
      found = found || (pattern[i] <= c && c <= pattern[i + 2]);
      i += 2;
    } else {
      found = found || pattern[i] == c;
    }
  }
  at = end + 1;
  return found != negated;
}

/// The file name against a pattern of the shell. Linear in practice: a star that fails is only ever
/// widened.
bool matches(std::string_view name, std::string_view pattern) {
  std::size_t n = 0, p = 0, star = pattern.npos, starred = 0;
  while (n < name.size()) {
    std::size_t next = p;
    if (p < pattern.size() && pattern[p] == '*') {
      star = p++;
      starred = n;
      continue;
    }
    bool fits = false;
    if (p < pattern.size()) {
      if (pattern[p] == '[') {
        fits = in_set(pattern, next, name[n]);
      } else {
        fits = pattern[p] == '?' || pattern[p] == name[n];
        ++next;
      }
    }
    if (fits) {
      p = next;
      ++n;
    } else if (star != pattern.npos) {
      p = star + 1;
      n = ++starred;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == '*') ++p;
  return p == pattern.size();
}

template <class Iterator, class Wanted>
std::vector<DrawingFile> files_below(const fs::path& folder, Wanted wanted) {
  std::vector<DrawingFile> files;
  constexpr auto options = fs::directory_options::skip_permission_denied;
  for (const fs::directory_entry& entry : Iterator(folder, options)) {
    if (entry.is_regular_file() && wanted(entry.path())) {
      files.push_back({entry.path(), entry.path().lexically_relative(folder)});
    }
  }
  std::ranges::sort(files, {}, &DrawingFile::path);
  return files;
}

std::vector<DrawingFile> files_of(const std::string& path, bool recursive) {
  std::error_code ignored;
  const fs::path given = drawing::utf8_path(path);
  if (fs::is_directory(given, ignored)) {
    if (recursive) return files_below<fs::recursive_directory_iterator>(given, is_dxf);
    return files_below<fs::directory_iterator>(given, is_dxf);
  }
  if (fs::exists(given, ignored)) return {{given, given.filename()}};
  const fs::path folder = given.has_parent_path() ? given.parent_path() : fs::path(".");
  const std::string pattern = given.filename().string();
  if (pattern.find_first_of("*?[") == pattern.npos || !fs::is_directory(folder, ignored)) {
    throw UsageError(path + ": there is no such file or folder");
  }
  const auto is_meant = [&](const fs::path& file) {
    return matches(file.filename().string(), pattern);
  };
  std::vector<DrawingFile> files = files_below<fs::directory_iterator>(folder, is_meant);
  if (files.empty()) throw UsageError(path + ": no file matches");
  return files;
}

}  // namespace

bool is_dxf(const fs::path& file) {
  return basic::equal_ignoring_case(file.extension().string(), ".dxf");
}

std::vector<DrawingFile> drawing_files(std::span<const std::string> paths, bool recursive) {
  std::vector<DrawingFile> all;
  std::set<fs::path> seen;
  for (const std::string& path : paths) {
    for (DrawingFile& file : files_of(path, recursive)) {
      if (seen.insert(fs::absolute(file.path).lexically_normal()).second) {
        all.push_back(std::move(file));
      }
    }
  }
  return all;
}

}  // namespace velmar::cli
