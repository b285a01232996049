#include "system/files.h"

#include <fcntl.h>
#include <stdio.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "basic/failure.h"
#include "system/user_folders.h"

namespace velmar::system {
namespace {

namespace fs = std::filesystem;
using basic::Failure;

bool is_there(const fs::path& path) {
  std::error_code ignored;
  return fs::symlink_status(path, ignored).type() > fs::file_type::not_found;
}

bool is_folder(const fs::path& path) {
  std::error_code ignored;
  return fs::is_directory(path, ignored);
}

/// A path without a folder is in the current one.
bool folder_is_there(const fs::path& path) {
  return path.parent_path().empty() || is_folder(path.parent_path());
}

void require_file(const fs::path& path) {
  if (is_file(path.string())) return;
  throw Failure(folder_is_there(path) ? basic::file_not_found : basic::path_not_found);
}

bool is_write_protected(const fs::path& path) {
  constexpr fs::perms writing =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  std::error_code ignored;
  return (fs::status(path, ignored).permissions() & writing) == fs::perms::none;
}

[[noreturn]] void fail(const std::error_code& error) {
  const bool refused = error == std::errc::permission_denied ||
                       error == std::errc::operation_not_permitted ||
                       error == std::errc::read_only_file_system;
  throw Failure(refused ? basic::permission_denied : basic::path_file_access);
}

}  // namespace

std::vector<std::string> list_folder(std::string_view folder, Listed what) {
  if (!is_folder(folder)) throw Failure(basic::path_not_found);
  std::error_code error;
  std::vector<std::string> paths;
  fs::directory_iterator entries(fs::absolute(folder), error);
  for (; !error && entries != fs::directory_iterator(); entries.increment(error)) {
    if (is_folder(entries->path()) == (what == Listed::folders)) {
      paths.push_back(entries->path().string());
    }
  }
  if (error) fail(error);
  std::ranges::sort(paths);  // file systems here list in any order; users know it by name
  return paths;
}

bool is_file(std::string_view path) {
  const fs::path file(path);
  return is_there(file) && !is_folder(file);
}

void remove_file(std::string_view path) {
  require_file(path);
  if (is_write_protected(path)) throw Failure(basic::permission_denied);
  std::error_code error;
  fs::remove(path, error);
  if (error) fail(error);
}

void rename_file(std::string_view from, std::string_view to) {
  require_file(from);
  const fs::path target(to);
  if (!folder_is_there(target)) throw Failure(basic::path_not_found);
  const std::string old_name(from), new_name(to);
  if (::renameat2(AT_FDCWD, old_name.c_str(), AT_FDCWD, new_name.c_str(), RENAME_NOREPLACE) == 0) {
    return;
  }
  if (errno == EEXIST || is_there(target)) throw Failure(basic::file_already_exists);
  // Another file system, or one that does not know the call.
  std::error_code error;
  fs::copy_file(old_name, target, error);
  if (error) {
    std::error_code ignored;
    if (error != std::errc::file_exists) fs::remove(target, ignored);  // what was copied of it
    fail(error);
  }
  fs::remove(old_name, error);
  if (error) fail(error);
}

std::string read_text_file(std::string_view path) {
  require_file(path);
  std::ifstream file{fs::path(path), std::ios::binary};
  if (!file) fail({errno, std::generic_category()});
  std::string text{std::istreambuf_iterator<char>(file), {}};
  if (file.bad()) throw Failure(basic::path_file_access);
  return text;
}

void write_text_file(std::string_view path, std::string_view text) {
  const fs::path file_path(path);
  if (file_path.parent_path() == data_folder()) {
    std::error_code shows_below;
    fs::create_directories(data_folder(), shows_below);
  }
  if (!folder_is_there(file_path)) throw Failure(basic::path_not_found);
  if (is_there(file_path) && (is_folder(file_path) || is_write_protected(file_path))) {
    throw Failure(basic::path_file_access);
  }
  std::ofstream file(file_path, std::ios::binary);
  if (!file) fail({errno, std::generic_category()});
  file << text;
  file.close();
  if (!file) throw Failure(basic::path_file_access);
}

}  // namespace velmar::system
