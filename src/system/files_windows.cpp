#include <windows.h>

#include "basic/failure.h"
#include "system/ansi_windows.h"
#include "system/files.h"
#include "system/wide_windows.h"

namespace velmar::system {
namespace {

using basic::Failure;

[[noreturn]] void fail(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
      throw Failure(basic::file_not_found);
    case ERROR_PATH_NOT_FOUND:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_DRIVE:
      throw Failure(basic::path_not_found);
    case ERROR_INVALID_NAME:
      throw Failure(basic::bad_file_name);
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
      throw Failure(basic::file_already_exists);
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
      throw Failure(basic::permission_denied);
    default:
      throw Failure(basic::path_file_access);
  }
}

bool is_folder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// Its attributes.
DWORD require_file(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) fail(::GetLastError());
  if (is_folder(attributes)) throw Failure(basic::file_not_found);
  return attributes;
}

std::wstring whole_path(const std::wstring& path) {
  std::wstring whole(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  whole.resize(
      ::GetFullPathNameW(path.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr));
  return whole;
}

class File {
 public:
  explicit File(HANDLE handle) : handle_(handle) {
    if (handle == INVALID_HANDLE_VALUE) fail(::GetLastError());
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() { ::CloseHandle(handle_); }
  HANDLE handle() const { return handle_; }

 private:
  HANDLE handle_;
};

}  // namespace

std::vector<std::string> list_folder(std::string_view folder, Listed what) {
  std::wstring within = whole_path(wide(folder));
  if (!is_folder(::GetFileAttributesW(within.c_str()))) throw Failure(basic::path_not_found);
  if (!within.ends_with(L'\\')) within += L'\\';
  WIN32_FIND_DATAW entry{};
  const HANDLE search = ::FindFirstFileW((within + L"*").c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) fail(::GetLastError());
  std::vector<std::string> paths;
  do {
    const std::wstring_view name = entry.cFileName;
    if (name == L"." || name == L"..") continue;
    if (is_folder(entry.dwFileAttributes) == (what == Listed::folders)) {
      paths.push_back(narrow(within + std::wstring(name)));
    }
  } while (::FindNextFileW(search, &entry));
  ::FindClose(search);
  return paths;
}

bool is_file(std::string_view path) {
  const DWORD attributes = ::GetFileAttributesW(wide(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !is_folder(attributes);
}

void remove_file(std::string_view path) {
  const std::wstring name = wide(path);
  if (require_file(name) & FILE_ATTRIBUTE_READONLY) throw Failure(basic::permission_denied);
  if (!::DeleteFileW(name.c_str())) fail(::GetLastError());
}

void rename_file(std::string_view from, std::string_view to) {
  const std::wstring old_name = wide(from), new_name = wide(to);
  require_file(old_name);
  if (::GetFileAttributesW(new_name.c_str()) != INVALID_FILE_ATTRIBUTES) {
    throw Failure(basic::file_already_exists);
  }
  if (!::MoveFileExW(old_name.c_str(), new_name.c_str(), MOVEFILE_COPY_ALLOWED)) {
    fail(::GetLastError());
  }
}

std::string read_text_file(std::string_view path) {
  const std::wstring name = wide(path);
  require_file(name);
  const File file(::CreateFileW(name.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                nullptr, OPEN_EXISTING, 0, nullptr));
  std::string bytes;
  constexpr DWORD at_once = 1 << 16;
  for (DWORD count = at_once; count > 0;) {
    const std::size_t before = bytes.size();
    bytes.resize(before + at_once);
    if (!::ReadFile(file.handle(), bytes.data() + before, at_once, &count, nullptr)) {
      fail(::GetLastError());
    }
    bytes.resize(before + count);
  }
  return from_ansi(bytes);
}

void write_text_file(std::string_view path, std::string_view text) {
  const std::wstring name = wide(path);
  const DWORD attributes = ::GetFileAttributesW(name.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES &&
      (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY))) {
    throw Failure(basic::path_file_access);
  }
  const File file(::CreateFileW(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  std::string bytes = to_ansi(text);
  for (std::size_t done = 0; done < bytes.size();) {
    DWORD count = 0;
    if (!::WriteFile(file.handle(), bytes.data() + done, static_cast<DWORD>(bytes.size() - done),
                     &count, nullptr)) {
      fail(::GetLastError());
    }
    done += count;
  }
}

}  // namespace velmar::system
