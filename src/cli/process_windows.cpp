#include <windows.h>

#include <algorithm>
#include <thread>

#include "basic/utf16.h"
#include "cli/process.h"
#include "drawing/error.h"
#include "drawing/windows_handle.h"
#include "embedded/program_path.h"

namespace velmar::cli {
namespace {

/// The word so that it comes out whole on the other side: a backslash stands for itself unless a
/// quotation mark follows.
std::string in_quotes(std::string_view word) {
  std::string text = "\"";
  std::size_t backslashes = 0;
  for (const char c : word) {
    if (c == '"') text.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    text += c;
  }
  text.append(backslashes, '\\');
  return text + "\"";
}

std::wstring command_line(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) line += (line.empty() ? "" : " ") + in_quotes(word);
  const std::u16string units = basic::to_utf16(line);
  return {units.begin(), units.end()};
}

/// For the other program to take over.
HANDLE open(const std::filesystem::path& path, DWORD access, DWORD how) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  return ::CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, how,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

}  // namespace

struct Process::Handle {
  explicit Handle(HANDLE handle) : process(handle) {}
  drawing::WindowsHandle process;
};

Process::Process(const std::vector<std::string>& command, const std::filesystem::path& output,
                 const std::filesystem::path& errors) {
  const drawing::WindowsHandle nothing(open("NUL", GENERIC_READ, OPEN_EXISTING));
  const drawing::WindowsHandle out(open(output, GENERIC_WRITE, CREATE_ALWAYS));
  const drawing::WindowsHandle err(open(errors, GENERIC_WRITE, CREATE_ALWAYS));
  STARTUPINFOW how{};
  how.cb = sizeof how;
  how.dwFlags = STARTF_USESTDHANDLES;
  how.hStdInput = nothing.get();
  how.hStdOutput = out.get();
  how.hStdError = err.get();
  PROCESS_INFORMATION started{};
  std::wstring line = command_line(command);
  // A group of its own: Ctrl-C at the terminal is for us to pass on.
  if (!::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NEW_PROCESS_GROUP,
                        nullptr, nullptr, &how, &started)) {
    throw drawing::Error(command.front() + ": does not start: " + drawing::last_windows_error());
  }
  ::CloseHandle(started.hThread);
  handle_ = std::make_unique<Handle>(started.hProcess);
}

Process::~Process() {
  if (ended()) return;
  kill();
  ::WaitForSingleObject(handle_->process.get(), INFINITE);
}

std::optional<int> Process::ended() {
  if (::WaitForSingleObject(handle_->process.get(), 0) != WAIT_OBJECT_0) return std::nullopt;
  constexpr DWORD crashed = 256;
  DWORD code = crashed;
  ::GetExitCodeProcess(handle_->process.get(), &code);
  return static_cast<int>(std::min(code, crashed));
}

void Process::kill() {
  if (!ended()) ::TerminateProcess(handle_->process.get(), 1);
}

void Process::wait_for_any(const std::vector<Process*>& running,
                           std::chrono::milliseconds at_most) {
  std::vector<HANDLE> handles;
  for (const Process* process : running) handles.push_back(process->handle_->process.get());
  const auto count =
      static_cast<DWORD>(std::min<std::size_t>(handles.size(), MAXIMUM_WAIT_OBJECTS));
  ::WaitForMultipleObjects(count, handles.data(), FALSE, static_cast<DWORD>(at_most.count()));
}

void end_with_parent() {}

std::string own_program() { return embedded::program_path().string(); }

unsigned processors() { return std::max(1U, std::thread::hardware_concurrency()); }

}  // namespace velmar::cli
