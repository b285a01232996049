#include <cstdio>
#include <string>
#include <string_view>

#include "com/idl/texts.h"
#include "component/method_rows.h"

namespace {

/// The rows without the code of the methods, which this program does not contain.
consteval auto without_code() {
  auto rows = velmar::published::methods;
  for (velmar::Method& row : rows) row.invoke = nullptr;
  return rows;
}
constexpr auto methods = without_code();

std::string printed(std::string_view what) {
  if (what == "idl") return velmar::com::type_library_idl(methods);
  if (what == "autolisp") return velmar::com::autolisp_glue(methods);
  if (what == "vba") return velmar::com::vba_glue(methods);
  return {};
}

}  // namespace

int main(int argc, char** argv) {
  const std::string text = argc == 3 ? printed(argv[1]) : std::string();
  if (text.empty()) {
    std::fputs("usage: velmar_texts idl|autolisp|vba FILE\n", stderr);
    return 2;
  }
  std::FILE* const file = std::fopen(argv[2], "wb");
  const bool written =
      file != nullptr && std::fwrite(text.data(), 1, text.size(), file) == text.size();
  if (file == nullptr || std::fclose(file) != 0 || !written) {
    std::perror(argv[2]);
    return 1;
  }
}
