#include "drawing/dimension/angle_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "drawing/dimension/overrides.h"

namespace velmar::drawing {
namespace {

struct Variable {
  int code;
  const char* name;
  std::int32_t AngleFormat::*value;
};
constexpr std::array variables{
    Variable{275, "$DIMAUNIT", &AngleFormat::units},
    Variable{179, "$DIMADEC", &AngleFormat::decimals},
    Variable{79, "$DIMAZIN", &AngleFormat::zeros},
};

void take(const std::string& text, std::int32_t& value) {
  const std::size_t begin = text.find_first_not_of(' ');
  if (begin != text.npos) std::from_chars(text.data() + begin, text.data() + text.size(), value);
}

std::string fixed_point(double number, int decimals) {
  constexpr double noise = 1e-13;  // halves go up, as far as doubles can tell them
  std::array<char, 64> text{};
  const double limited = std::min(number, 1e15);
  std::snprintf(text.data(), text.size(), "%.*f", decimals, limited + limited * noise);
  return text.data();
}

std::string shortened(std::string text, const AngleFormat& format, const DimVariables& v) {
  const std::size_t point = text.find('.');
  if ((format.zeros & AngleFormat::no_trailing_zeros) != 0 && point != text.npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  if ((format.zeros & AngleFormat::no_leading_zero) != 0 && text.starts_with("0."))
    text.erase(0, 1);
  if (v.separator > 0 && v.separator < 128) {
    std::ranges::replace(text, '.', static_cast<char>(v.separator));
  }
  return text;
}

/// One or two decimals show the minutes, three or four the seconds, more of them their decimals.
std::string in_minutes(double degrees, int decimals) {
  if (decimals == 0) return fixed_point(degrees, 0) + "%%d";
  constexpr double minutes_per_degree = 60, seconds_per_degree = 3600;
  if (decimals <= 2) {
    const double minutes = std::round(degrees * minutes_per_degree);
    return fixed_point(std::floor(minutes / minutes_per_degree), 0) + "%%d" +
           fixed_point(std::fmod(minutes, minutes_per_degree), 0) + "'";
  }
  const int shown = std::max(decimals - 4, 0);
  const double step = std::pow(10, -shown);
  const double seconds = std::round(degrees * seconds_per_degree / step) * step;
  const double rest = std::fmod(seconds, seconds_per_degree);
  return fixed_point(std::floor(seconds / seconds_per_degree), 0) + "%%d" +
         fixed_point(std::floor(rest / minutes_per_degree), 0) + "'" +
         fixed_point(std::fmod(rest, minutes_per_degree), shown) + "\"";
}

}  // namespace

AngleFormat angle_format(const Drawing& drawing, RecordId dimension) {
  const Overrides overrides = overrides_in(drawing.read_xdata(dimension));
  const auto style = std::get<Dimension>(drawing.read_body(dimension)).style;
  const RecordId row = drawing.find_row("DIMSTYLE", style);
  AngleFormat format;
  for (const Variable& one : variables) {
    const bool is_listed = row != RecordId::none;
    take(is_listed ? drawing.row_text(row, one.code) : drawing.header(one.name).value_or(""),
         format.*one.value);
    const auto own = std::ranges::find(overrides, one.code, &Override::variable);
    if (own != overrides.end()) take(own->value, format.*one.value);
  }
  return format;
}

std::string angle_text(double angle, const AngleFormat& format, const DimVariables& v) {
  const int decimals = std::clamp(format.decimals < 0 ? v.decimals : format.decimals, 0, 8);
  const double degrees = angle * 180 / std::numbers::pi;
  const auto text = [&](double number) {
    return shortened(fixed_point(number, decimals), format, v);
  };
  switch (format.units) {
    case AngleFormat::minutes_and_seconds:
      return in_minutes(degrees, decimals);
    case AngleFormat::gradians:
      return text(degrees / 0.9) + "g";
    case AngleFormat::radians:
      return text(angle) + "r";
    default:
      return text(degrees) + "%%d";
  }
}

}  // namespace velmar::drawing
