#include "embedded/properties/checks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

#include "basic/conversion.h"
#include "embedded/errors.h"
#include "embedded/names.h"

namespace velmar::embedded {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double smallest = std::numeric_limits<double>::min();
constexpr double steepest = 85 * std::numbers::pi / 180;

/// The values that a numeric member may have, both ends included.
struct Range {
  Member member;
  double lowest, highest;
};

constexpr std::array ranges{
    Range{Member::Height, smallest, infinity},
    Range{Member::Radius, smallest, infinity},
    Range{Member::ScaleFactor, smallest, infinity},
    Range{Member::RadiusRatio, 1e-6, 1},
    Range{Member::ConstantWidth, 0, infinity},
    Range{Member::LinetypeScale, smallest, infinity},
    Range{Member::ObliqueAngle, -steepest, steepest},
    Range{Member::HorizontalAlignment, 0, 5},
    Range{Member::VerticalAlignment, 0, 3},
    Range{Member::FieldLength, 0, 32767},
    Range{Member::Columns, 1, 32767},
    Range{Member::Rows, 1, 32767},
};

void check(Member member, double number) {
  const auto range = std::ranges::find(ranges, member, &Range::member);
  if (range != ranges.end() && !(range->lowest <= number && number <= range->highest)) {
    throw failure(HostError::invalid_input);
  }
  const bool is_scale = member == Member::XScaleFactor || member == Member::YScaleFactor ||
                        member == Member::ZScaleFactor;
  if (is_scale && number == 0) throw failure(HostError::invalid_input);
}

}  // namespace

double checked_number(Member member, const Value& value) {
  const double number = to_number(value);
  check(member, number);
  return number;
}

std::int32_t checked_integer(Member member, const Value& value) {
  const auto number = basic::convert<std::int32_t>(value);
  check(member, number);
  constexpr std::int32_t backward = 2, upside_down = 4;
  if (member == Member::TextGenerationFlag && (number & ~(backward | upside_down)) != 0) {
    throw failure(HostError::invalid_input);
  }
  return number;
}

std::string checked_text(const drawing::Drawing& drawing, Member member, const Value& value) {
  std::string text = basic::convert<std::string>(value);
  if (member == Member::StyleName) return require_row(drawing, "STYLE", text);
  if (member == Member::Name) return require_block(drawing, text);
  if (member == Member::TagString && (text.empty() || text.find(' ') != std::string::npos)) {
    throw failure(HostError::invalid_input);
  }
  return text;
}

}  // namespace velmar::embedded
