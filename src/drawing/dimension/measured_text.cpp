#include "drawing/dimension/measured_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <functional>
#include <numbers>
#include <numeric>

namespace velmar::drawing {
namespace {

enum Units : std::int32_t { scientific = 1, decimal, engineering, architectural, fractional };
constexpr std::int32_t no_leading_zero = 4, no_trailing_zeros = 8;
constexpr double inches_per_foot = 12;

/// Groups 270 of before AC1015 tell whether fractions are stacked too.
Units units_of(const DimVariables& v) {
  constexpr std::array<Units, 9> by_old{decimal,       scientific,    decimal,
                                        engineering,   architectural, fractional,
                                        architectural, fractional,    decimal};
  if (v.old_units > 0) return by_old[static_cast<std::size_t>(std::min(v.old_units, 8))];
  return v.units >= scientific && v.units <= fractional ? static_cast<Units>(v.units) : decimal;
}

bool is_stacked(const DimVariables& v, TextForm form) {
  constexpr std::int32_t not_stacked = 2;
  const bool by_old = v.old_units == 4 || v.old_units == 5;
  return form == TextForm::mtext && (v.old_units > 0 ? by_old : v.fraction != not_stacked);
}

std::string printed(const char* format, int decimals, double number) {
  std::array<char, 400> text{};
  const int size = std::snprintf(text.data(), text.size(), format, decimals, number);
  return {text.data(), static_cast<std::size_t>(std::clamp(size, 0, 399))};
}

/// Halves go up, as far as doubles can tell them.
std::string fixed(double number, int decimals) {
  constexpr double noise = 1e-13;
  return printed("%.*f", decimals, number + std::abs(number) * noise);
}

std::string without_zeros(std::string text, std::int32_t zeros, std::int32_t separator = '.') {
  const std::size_t point = text.find('.');
  if ((zeros & no_trailing_zeros) != 0 && point != text.npos) {
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
  }
  if ((zeros & no_leading_zero) != 0 && text.size() > 1 && text.starts_with("0.")) text.erase(0, 1);
  if (separator > 0 && separator < 128) {
    std::ranges::replace(text, '.', static_cast<char>(separator));
  }
  return text;
}

int decimals_of(const DimVariables& v) { return std::clamp(v.decimals, 0, 8); }

/// A length in whole units and a fraction of the variables' precision.
struct TextParts {
  double whole = 0;
  long over = 0, under = 1;
};

TextParts in_fractions(double length, int precision) {
  const long steps = 1L << precision;
  const double halves_up = std::floor(length * static_cast<double>(steps) + 0.5);
  TextParts parts;
  parts.whole = std::floor(halves_up / static_cast<double>(steps));
  parts.over = static_cast<long>(halves_up - parts.whole * static_cast<double>(steps));
  const long divisor = std::gcd(parts.over, steps);
  parts.over /= divisor;
  parts.under = steps / divisor;
  return parts;
}

std::string fraction_text(const TextParts& parts, const DimVariables& v, TextForm form) {
  const std::string over = std::to_string(parts.over), under = std::to_string(parts.under);
  if (!is_stacked(v, form)) return over + "/" + under;
  return "{\\H1x;\\S" + over + (v.fraction == 1 ? "#" : "/") + under + ";}";
}

std::string fractional_text(const TextParts& parts, const DimVariables& v, TextForm form) {
  if (parts.over == 0) return fixed(parts.whole, 0);
  std::string fraction = fraction_text(parts, v, form);
  if (parts.whole == 0) return fraction;
  return fixed(parts.whole, 0) + (is_stacked(v, form) ? "" : " ") + fraction;
}

// DIMZIN: 0 leaves out zero feet and zero inches, 1 neither, 2 the inches, 3 the feet.
bool shows_feet(double feet, const DimVariables& v) {
  const std::int32_t shown = v.zeros & 3;
  return feet > 0 || shown == 1 || shown == 2;
}

std::string feet_and_inches(double feet, bool no_inches, const std::string& inches,
                            const DimVariables& v) {
  const std::int32_t shown = v.zeros & 3;
  const bool with_feet = shows_feet(feet, v);
  const bool with_inches = !no_inches || shown == 1 || shown == 3 || !with_feet;
  std::string text = with_feet ? fixed(feet, 0) + "'" : "";
  if (with_feet && with_inches) text += "-";
  return with_inches ? text + inches + "\"" : text;
}

std::string architectural_text(double length, const DimVariables& v, TextForm form) {
  TextParts parts = in_fractions(length, decimals_of(v));
  const double feet = std::floor(parts.whole / inches_per_foot);
  parts.whole -= feet * inches_per_foot;
  const bool no_inches = parts.whole == 0 && parts.over == 0;
  std::string inches = fractional_text(parts, v, form);
  if (parts.whole == 0 && parts.over != 0 && shows_feet(feet, v)) {
    inches.insert(0, is_stacked(v, form) ? "0" : "0 ");
  }
  return feet_and_inches(feet, no_inches, inches, v);
}

std::string engineering_text(double length, const DimVariables& v) {
  const double step = std::pow(10, -decimals_of(v));
  const double rounded = std::floor(length / step + 0.5) * step;
  const double feet = std::floor(rounded / inches_per_foot);
  const double inches = std::max(0.0, rounded - feet * inches_per_foot);
  const std::string text =
      without_zeros(fixed(inches, decimals_of(v)), v.zeros & no_trailing_zeros);
  return feet_and_inches(feet, inches < step / 2, text, v);
}

double rounded(double length, double step) {
  return step > 0 ? std::floor(length / step + 0.5) * step : length;
}

/// "prefix<>suffix" around the text, or the suffix behind it.
std::string with_affix(const std::string& text, const std::string& affix) {
  const std::size_t place = affix.find("<>");
  if (place == affix.npos) return text + affix;
  return affix.substr(0, place) + text + affix.substr(place + 2);
}

DimVariables for_tolerance(DimVariables v) {
  v.decimals = v.tolerance_decimals;
  v.zeros = v.tolerance_zeros;
  return v;
}

std::string stacked(const std::string& upper, const std::string& lower, const DimVariables& v,
                    TextForm form) {
  if (form == TextForm::plain) return upper + "/" + lower;
  return "{\\H" + without_zeros(fixed(v.tolerance_height, 4), no_trailing_zeros) + "x;\\S" + upper +
         "^" + lower + ";}";
}

/// How a number at least 0 is written.
using Writer = std::function<std::string(double, const DimVariables&)>;

std::string with_tolerance(double length, const DimVariables& v, TextForm form,
                           const Writer& write) {
  const DimVariables of_tolerance = for_tolerance(v);
  const auto text = [&](double number) {
    return (number < 0 ? "-" : "") + write(std::abs(number), of_tolerance);
  };
  if (v.limits != 0) return stacked(text(length + v.plus), text(length - v.minus), v, form);
  std::string number = write(length, v);
  if (v.tolerance == 0) return number;
  if (v.plus == v.minus) return number + (v.plus == 0 ? "" : "%%p" + text(v.plus));
  const auto with_sign = [&](double change) {
    return change == 0 ? " 0" : (change > 0 ? "+" : "") + text(change);
  };
  return number + stacked(with_sign(v.plus), with_sign(-v.minus), v, form);
}

std::string alternate_text(double length, const DimVariables& v, TextForm form) {
  DimVariables other;
  other.decimals = v.alternate_decimals;
  other.units = v.alternate_units;
  other.zeros = v.alternate_zeros;
  other.separator = v.separator;
  const double converted = rounded(length * v.alternate_factor, v.alternate_rounding);
  return "[" + with_affix(length_text(converted, other, form), v.alternate_affix) + "]";
}

bool has_prefix(const DimVariables& v) {
  const std::size_t place = v.affix.find("<>");
  return place != v.affix.npos && place > 0;
}

/// `own` and `alternate` in their places in what the user wrote.
std::string placed_in(const std::string& written, const std::string& own,
                      const std::string& alternate) {
  if (written.empty()) return alternate.empty() ? own : own + " " + alternate;
  if (written.find_first_not_of(' ') == written.npos) return {};
  std::string text = written;
  if (const std::size_t place = text.find("<>"); place != text.npos) text.replace(place, 2, own);
  if (const std::size_t place = text.find("[]"); place != text.npos) {
    text.replace(place, 2, alternate);
  }
  return text;
}

}  // namespace

std::string length_text(double length, const DimVariables& v, TextForm form) {
  constexpr double longest = 1e15;  // beyond it a double has no decimals
  if (!(length < longest)) return printed("%.*E", decimals_of(v), length);
  switch (units_of(v)) {
    case scientific:
      return printed("%.*E", decimals_of(v), length);
    case engineering:
      return engineering_text(length, v);
    case architectural:
      return architectural_text(length, v, form);
    case fractional:
      return fractional_text(in_fractions(length, decimals_of(v)), v, form);
    case decimal:
      break;
  }
  return without_zeros(fixed(length, decimals_of(v)), v.zeros, v.separator);
}

std::string measured_text(double length, const std::string& written, const DimVariables& v,
                          TextForm form, std::string_view mark) {
  const Writer write = [&](double number, const DimVariables& how) {
    return length_text(number, how, form);
  };
  const std::string number = with_tolerance(rounded(length, v.rounding), v, form, write);
  const std::string own = with_affix((has_prefix(v) ? "" : std::string(mark)) + number, v.affix);
  return placed_in(written, own, v.alternate != 0 ? alternate_text(length, v, form) : "");
}

std::string measured_angle_text(double angle, const std::string& written, const DimVariables& v,
                                const AngleFormat& format, TextForm form) {
  constexpr double radians_per_degree = std::numbers::pi / 180;
  const Writer write = [&](double degrees, const DimVariables& how) {
    return angle_text(degrees * radians_per_degree, format, how);
  };
  const std::string number = with_tolerance(angle / radians_per_degree, v, form, write);
  return placed_in(written, with_affix(number, v.affix), "");
}

}  // namespace velmar::drawing
