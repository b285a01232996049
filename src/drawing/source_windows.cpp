#include <windows.h>

#include <algorithm>
#include <new>

#include "drawing/error.h"
#include "drawing/source.h"
#include "drawing/windows_handle.h"

namespace velmar::drawing {
namespace {

std::uint64_t wide(DWORD high, DWORD low) { return static_cast<std::uint64_t>(high) << 32 | low; }

FileStamp stamp_from(const BY_HANDLE_FILE_INFORMATION& file) {
  constexpr std::int64_t tick_ns = 100;
  const std::uint64_t ticks =
      wide(file.ftLastWriteTime.dwHighDateTime, file.ftLastWriteTime.dwLowDateTime);
  // From 1970, as nanoseconds from 1601 are more than the number holds.
  constexpr std::uint64_t epoch = 116'444'736'000'000'000;
  return {file.dwVolumeSerialNumber, wide(file.nFileIndexHigh, file.nFileIndexLow),
          wide(file.nFileSizeHigh, file.nFileSizeLow),
          static_cast<std::int64_t>(ticks - epoch) * tick_ns};
}

/// Others may do with the file what they like.
HANDLE open(const std::filesystem::path& path, DWORD access) {
  return ::CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                       nullptr, OPEN_EXISTING,
                       FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
}

[[noreturn]] void refuse(const std::filesystem::path& path, const std::string& why) {
  throw Error(path.string() + ": " + why);
}

std::string too_large(std::uint64_t size) {
  constexpr std::uint64_t megabyte = 1'000'000;
  constexpr bool has_32_bits = sizeof(void*) == 4;
  return "cannot be read: its " + std::to_string(size / megabyte) + " MB do not fit into " +
         (has_32_bits ? "what this 32-bit program has of memory; use the 64-bit one"
                      : "the memory");
}

/// The whole file, or what there is of it if it is cut short meanwhile.
std::size_t read(HANDLE file, char* to, std::size_t size, const std::filesystem::path& path) {
  constexpr std::size_t at_once = 64 << 20;
  std::size_t done = 0;
  while (done < size) {
    DWORD count = 0;
    if (!::ReadFile(file, to + done, static_cast<DWORD>(std::min(at_once, size - done)), &count,
                    nullptr)) {
      refuse(path, "cannot be read: " + last_windows_error());
    }
    if (count == 0) break;
    done += count;
  }
  return done;
}

}  // namespace

std::optional<FileStamp> stamp_of(const std::filesystem::path& path) {
  const WindowsHandle file(open(path, FILE_READ_ATTRIBUTES));
  BY_HANDLE_FILE_INFORMATION status{};
  if (!file.valid() || !::GetFileInformationByHandle(file.get(), &status)) return std::nullopt;
  return stamp_from(status);
}

// Read, not mapped: a file that someone has mapped cannot be replaced, neither by us nor by others.
Source Source::map(const std::filesystem::path& path) {
  const WindowsHandle file(open(path, GENERIC_READ));
  if (!file.valid()) refuse(path, "cannot be read: " + last_windows_error());
  if (::GetFileType(file.get()) != FILE_TYPE_DISK) refuse(path, "is no regular file");
  BY_HANDLE_FILE_INFORMATION status{};
  if (!::GetFileInformationByHandle(file.get(), &status)) refuse(path, last_windows_error());
  if (status.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
    refuse(path, "is a folder, not a drawing");
  }
  const FileStamp stamp = stamp_from(status);
  if (stamp.size == 0) refuse(path, "is empty: expected a DXF drawing");
  std::shared_ptr<char[]> bytes;
  if (stamp.size <= SIZE_MAX / 2) {
    bytes.reset(new (std::nothrow) char[static_cast<std::size_t>(stamp.size)]);
  }
  if (!bytes) refuse(path, too_large(stamp.size));
  Source source;
  source.bytes_ = {bytes.get(),
                   read(file.get(), bytes.get(), static_cast<std::size_t>(stamp.size), path)};
  source.owner_ = std::move(bytes);
  source.stamp_ = stamp;
  return source;
}

}  // namespace velmar::drawing
