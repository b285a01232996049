#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "drawing/error.h"
#include "drawing/geometry/point.h"

namespace velmar::embedded {

// What a user types in answer to a question. Blanks around it do not count; nothing comes back
// where the text is no such answer. The decimal mark is the point, under every locale.

/// Plain, exponent or fraction form: "12", "-.5", "1.5e3", "1/2", "1-1/2" (one and a half).
std::optional<double> read_real(std::string_view text);
/// A whole number from -32768 to 32767.
std::optional<std::int16_t> read_integer(std::string_view text);
/// Degrees, or "1.5r" radians, "100g" grads; in radians, counter-clockwise, from 0 to below 2 pi.
std::optional<double> read_angle(std::string_view text);

/// "x,y[,z]" and "distance<angle" from the origin; "@dx,dy[,dz]", "@distance<angle" and "@" alone
/// from `from`.
std::optional<drawing::Point> read_point(std::string_view text, drawing::Point from);
/// Two points with blanks between them, the second may be relative to the first.
std::optional<std::pair<drawing::Point, drawing::Point>> read_corners(std::string_view text);

/// An entity by its handle: `#2F` or `(handent "2F")`.
std::optional<drawing::Handle> read_handle(std::string_view text);

/// Without the blanks, tabs and line breaks around it.
std::string_view trimmed(std::string_view text);
/// Whether the texts differ at most in the case of ASCII letters.
bool same_word(std::string_view a, std::string_view b);

/// An angle between 0 and 2 pi that points the same way.
double normal_angle(double radians);

}  // namespace velmar::embedded
