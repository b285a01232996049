#include "drawing/utf8_path.h"

namespace velmar::drawing {

std::filesystem::path utf8_path(std::string_view text) { return text; }

}  // namespace velmar::drawing
