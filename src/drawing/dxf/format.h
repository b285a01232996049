#pragma once

#include <string>

#include "drawing/code_page.h"

namespace velmar::drawing::dxf {

/// How a drawing is written down.
struct Format {
  bool binary = false;
  bool wide_codes = true;         // binary: group codes of two bytes (since R13) instead of one
  char line_end = '\n';           // text: what ends a line, '\r' in very old files
  std::string new_line = "\r\n";  // text: as lines are written
  std::string version = "AC1009";
  std::string code_page_name;
  CodePage code_page = CodePage::named("");

  /// Since R13 entities have subclass markers, owners and always handles.
  bool has_subclasses() const { return version >= "AC1012"; }
};

}  // namespace velmar::drawing::dxf
