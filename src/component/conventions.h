#pragma once

#include <string>
#include <string_view>

namespace velmar {

/// What most interactive commands write at their end.
inline constexpr std::string_view autocad_ready = "Autocad Ready.";

/// Users speak in degrees, the host in radians. Published with these digits.
inline constexpr double radians_per_degree = 0.0174532925199433;

/// The text on a line of its own: most prompts begin so, some are given bare.
inline std::string new_line(std::string_view text) { return std::string("\r\n").append(text); }

}  // namespace velmar
