#include <windows.h>

#include <algorithm>
#include <random>

#include "drawing/error.h"
#include "drawing/file_writer.h"
#include "drawing/windows_handle.h"

namespace velmar::drawing {
namespace {

HANDLE handle(std::intptr_t file) { return reinterpret_cast<HANDLE>(file); }

constexpr DWORD share_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// What of a file's attributes goes over to the one that replaces it.
constexpr DWORD lasting_attributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                     FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

std::wstring random_suffix() {
  constexpr std::wstring_view letters = L"abcdefghijklmnopqrstuvwxyz0123456789";
  std::random_device random;
  std::wstring suffix = L".";
  for (int i = 0; i < 8; ++i) suffix += letters[random() % letters.size()];
  return suffix;
}

}  // namespace

FileWriter::FileWriter(const std::filesystem::path& target)
    : target_(followed(target)), lock_(target_) {
  const DWORD attributes = ::GetFileAttributesW(target_.c_str());
  replaces_ = attributes != INVALID_FILE_ATTRIBUTES;
  if (replaces_) {
    const WindowsHandle old(::CreateFileW(target_.c_str(), GENERIC_WRITE | DELETE, share_all,
                                          nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS,
                                          nullptr));
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) ||
        (old.valid() && ::GetFileType(old.get()) != FILE_TYPE_DISK)) {
      throw Error(target.string() + ": cannot be written: it is no regular file");
    }
    if (attributes & FILE_ATTRIBUTE_READONLY) ::SetLastError(ERROR_ACCESS_DENIED);
    if (!old.valid() || (attributes & FILE_ATTRIBUTE_READONLY)) refuse("cannot be written");
  }
  const DWORD kept = replaces_ ? attributes & lasting_attributes : 0;
  const auto folder = target_.parent_path();
  do {
    temporary_ = folder / (L"." + target_.filename().wstring() + random_suffix());
    file_ = reinterpret_cast<std::intptr_t>(
        ::CreateFileW(temporary_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                      kept ? kept : FILE_ATTRIBUTE_NORMAL, nullptr));
  } while (file_ == -1 && ::GetLastError() == ERROR_FILE_EXISTS);
  if (file_ == -1) {
    temporary_.clear();
    refuse("cannot be written: its folder takes no new file");
  }
}

FileWriter::~FileWriter() {
  if (file_ != -1) ::CloseHandle(handle(file_));
  if (!temporary_.empty()) ::DeleteFileW(temporary_.c_str());
}

void FileWriter::write(const std::vector<std::string_view>& pieces) {
  // A call of the system for each piece would take longer than copying them together.
  constexpr std::size_t at_once = 1 << 20;
  std::string block;
  const auto flush = [&](std::string_view bytes) {
    while (!bytes.empty()) {
      const auto count = static_cast<DWORD>(std::min(bytes.size(), at_once));
      DWORD written = 0;
      if (!::WriteFile(handle(file_), bytes.data(), count, &written, nullptr)) {
        refuse("cannot be written");
      }
      bytes.remove_prefix(written);
    }
  };
  for (const std::string_view piece : pieces) {
    if (block.size() + piece.size() > at_once) {
      flush(block);
      block.clear();
    }
    if (piece.size() > at_once) {
      flush(piece);
    } else {
      block += piece;
    }
  }
  flush(block);
}

void FileWriter::finish() {
  if (replaces_ && !::FlushFileBuffers(handle(file_))) refuse("cannot be written");
  const BOOL closed = ::CloseHandle(handle(file_));
  file_ = -1;
  if (!closed) refuse("cannot be written");
  // Not ReplaceFile: where that fails half way, the old file is gone.
  if (!::MoveFileExW(temporary_.c_str(), target_.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
    refuse("cannot be replaced");
  }
  temporary_.clear();
}

void FileWriter::refuse(const char* doing) const {
  const std::string reason = last_windows_error();
  throw Error(target_.string() + ": " + doing + ": " + reason + "; the file is as it was");
}

}  // namespace velmar::drawing
