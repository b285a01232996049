#pragma once

#include <string>
#include <string_view>

#include "drawing/dxf/tag.h"

namespace velmar::drawing::dxf {

// Binary data: in text files pairs of hexadecimal digits.

std::string hexadecimal_text(std::string_view data);
/// As far as the text is such pairs.
std::string hexadecimal_data(std::string_view text);
/// The data of a tag.
std::string chunk_value(std::string_view bytes, const Tag& tag, const Format& format);

}  // namespace velmar::drawing::dxf
