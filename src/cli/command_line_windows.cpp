#include <windows.h>

#include "cli/command_line.h"
// After windows.h.
#include <shellapi.h>

#include <memory>

#include "basic/utf16.h"

namespace velmar::cli {

// What main is given is in the user's code page, which holds few characters, and has its wildcards
// expanded in answers too.
std::vector<std::string> command_line(int, char**) {
  int count = 0;
  const std::unique_ptr<wchar_t*, decltype(&::LocalFree)> words(
      ::CommandLineToArgvW(::GetCommandLineW(), &count), ::LocalFree);
  std::vector<std::string> line;
  for (int i = 0; i < count; ++i) {
    const std::wstring_view word = words.get()[i];
    line.push_back(basic::to_utf8(std::u16string(word.begin(), word.end())));
  }
  return line;
}

}  // namespace velmar::cli
