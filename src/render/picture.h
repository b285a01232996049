#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "render/painter.h"

namespace velmar::render {

enum class Format { png, svg, pdf };
/// By the extension, in any letter case.
std::optional<Format> format_of(const std::filesystem::path& path);

/// In pixels; of SVG and PDF in points of 1/72 inch.
struct Sheet {
  Format format = Format::png;
  double width = 0, height = 0;
  Color paper = {};
};

/// The bytes of a picture file on which `draw` has painted. Fails with drawing::Error where there
/// is no memory for it, and where cairo is missing, which draws.
std::string picture(const Sheet& sheet, const std::function<void(Painter&)>& draw);

}  // namespace velmar::render
