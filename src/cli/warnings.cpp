#include "cli/warnings.h"

#include "cli/console.h"
#include "cli/printable.h"
#include "cli/text_table.h"

namespace velmar::cli {

std::string warning_text(const drawing::Warning& warning, bool binary) {
  std::string place;
  if (warning.line != 0) place = (binary ? "byte " : "line ") + std::to_string(warning.line);
  if (warning.handle != 0) {
    if (!place.empty()) place += " ";
    place += "(#" + drawing::handle_text(warning.handle) + ")";
  }
  if (!place.empty()) place += ": ";
  return printable(place + warning.text);
}

void show_warnings(std::string_view file, const drawing::Drawing& drawing) {
  for (const drawing::Warning& warning : drawing.warnings()) {
    complain(printable(file) + ": " + warning_text(warning, drawing.is_binary()));
  }
}

}  // namespace velmar::cli
