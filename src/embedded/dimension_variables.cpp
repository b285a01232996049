#include "embedded/dimension_variables.h"

#include <array>
#include <limits>

#include "basic/conversion.h"
#include "drawing/dimension/arrowheads.h"
#include "drawing/dimension/drawn_block.h"
#include "drawing/dimension/styles.h"
#include "embedded/errors.h"
#include "embedded/names.h"
#include "embedded/properties/table.h"

namespace velmar::embedded {
namespace {

using drawing::DimVariables;

constexpr double no_limit = std::numeric_limits<double>::infinity();
constexpr double least = std::numeric_limits<double>::min();

struct Number {
  Member member;
  double DimVariables::*variable;
  double lowest, highest;  // of a put
};
constexpr std::array numbers{
    Number{Member::ScaleFactor, &DimVariables::scale, least, no_limit},
    Number{Member::LinearScaleFactor, &DimVariables::length_factor, -no_limit, no_limit},
    Number{Member::ArrowheadSize, &DimVariables::arrow_size, 0, no_limit},
    Number{Member::DimensionLineExtend, &DimVariables::line_beyond, 0, no_limit},
    Number{Member::ExtensionLineExtend, &DimVariables::extension_beyond, 0, no_limit},
    Number{Member::ExtensionLineOffset, &DimVariables::extension_offset, 0, no_limit},
    Number{Member::TextHeight, &DimVariables::text_height, least, no_limit},
    Number{Member::TextGap, &DimVariables::text_gap, -no_limit, no_limit},
    Number{Member::RoundDistance, &DimVariables::rounding, 0, no_limit},
    Number{Member::AltRoundDistance, &DimVariables::alternate_rounding, 0, no_limit},
    Number{Member::AltUnitsScale, &DimVariables::alternate_factor, least, no_limit},
    Number{Member::ToleranceUpperLimit, &DimVariables::plus, -no_limit, no_limit},
    Number{Member::ToleranceLowerLimit, &DimVariables::minus, -no_limit, no_limit},
    Number{Member::ToleranceHeightScale, &DimVariables::tolerance_height, least, no_limit},
};

struct Choice {
  Member member;
  std::int32_t DimVariables::*variable;
  std::int32_t highest;  // of a put; the lowest is 0
};
constexpr std::array choices{
    Choice{Member::Fit, &DimVariables::fit, 3},
    Choice{Member::TextMovement, &DimVariables::text_movement, 2},
    Choice{Member::HorizontalTextPosition, &DimVariables::horizontal, 4},
    Choice{Member::VerticalTextPosition, &DimVariables::vertical, 4},
    Choice{Member::PrimaryUnitsPrecision, &DimVariables::decimals, 8},
    Choice{Member::AltUnitsPrecision, &DimVariables::alternate_decimals, 8},
    Choice{Member::TolerancePrecision, &DimVariables::tolerance_decimals, 8},
    Choice{Member::FractionFormat, &DimVariables::fraction, 2},
    Choice{Member::DimensionLineColor, &DimVariables::line_color, 256},
    Choice{Member::ExtensionLineColor, &DimVariables::extension_color, 256},
    Choice{Member::TextColor, &DimVariables::text_color, 256},
};

/// A switch, or some bits of one.
struct Switch {
  Member member;
  std::int32_t DimVariables::*variable;
  std::int32_t bits = 0;  // 0: the whole
};
constexpr std::int32_t leading_zeros = 4, trailing_zeros = 8;
constexpr std::array switches{
    Switch{Member::TextInside, &DimVariables::text_inside},
    Switch{Member::TextInsideAlign, &DimVariables::inside_horizontal},
    Switch{Member::TextOutsideAlign, &DimVariables::outside_horizontal},
    Switch{Member::ForceLineInside, &DimVariables::line_inside},
    Switch{Member::DimLineInside, &DimVariables::no_outside_line},
    Switch{Member::DimLine1Suppress, &DimVariables::no_line1},
    Switch{Member::DimLine2Suppress, &DimVariables::no_line2},
    Switch{Member::ExtLine1Suppress, &DimVariables::no_extension1},
    Switch{Member::ExtLine2Suppress, &DimVariables::no_extension2},
    Switch{Member::AltUnits, &DimVariables::alternate},
    Switch{Member::SuppressLeadingZeros, &DimVariables::zeros, leading_zeros},
    Switch{Member::SuppressTrailingZeros, &DimVariables::zeros, trailing_zeros},
    Switch{Member::ToleranceSuppressLeadingZeros, &DimVariables::tolerance_zeros, leading_zeros},
    Switch{Member::ToleranceSuppressTrailingZeros, &DimVariables::tolerance_zeros, trailing_zeros},
};

/// The low bits of DIMZIN: 0 leaves out zero feet and zero inches, 1 neither, 2 the inches, 3 the
/// feet.
struct FeetAndInches {
  bool no_feet, no_inches;
};
FeetAndInches suppressed(std::int32_t zeros) {
  const std::int32_t bits = zeros & 3;
  return {bits == 0 || bits == 3, bits == 0 || bits == 2};
}
std::int32_t with(std::int32_t zeros, FeetAndInches suppress) {
  const std::int32_t bits =
      suppress.no_feet ? (suppress.no_inches ? 0 : 3) : (suppress.no_inches ? 2 : 1);
  return (zeros & ~3) | bits;
}

using Row = Property<DimVariables>;

template <std::int32_t DimVariables::*zeros>
constexpr Row zero_feet(Member member) {
  return {
      member, [](const DimVariables& v) -> Value { return suppressed(v.*zeros).no_feet; },
      [](DimVariables& v, const Value& value) {
        v.*zeros = with(v.*zeros, {basic::convert<bool>(value), suppressed(v.*zeros).no_inches});
      }};
}
template <std::int32_t DimVariables::*zeros>
constexpr Row zero_inches(Member member) {
  return {member, [](const DimVariables& v) -> Value { return suppressed(v.*zeros).no_inches; },
          [](DimVariables& v, const Value& value) {
            v.*zeros = with(v.*zeros, {suppressed(v.*zeros).no_feet, basic::convert<bool>(value)});
          }};
}

/// "prefix<>suffix", or the suffix alone.
template <std::string DimVariables::*affix>
Value get_prefix(const DimVariables& v) {
  const std::size_t place = (v.*affix).find("<>");
  return place == std::string::npos ? std::string() : (v.*affix).substr(0, place);
}
template <std::string DimVariables::*affix>
Value get_suffix(const DimVariables& v) {
  const std::size_t place = (v.*affix).find("<>");
  return place == std::string::npos ? v.*affix : (v.*affix).substr(place + 2);
}
std::string joined(const std::string& prefix, const std::string& suffix) {
  return prefix.empty() ? suffix : prefix + "<>" + suffix;
}
template <std::string DimVariables::*affix>
void put_prefix(DimVariables& v, const Value& value) {
  const auto suffix = basic::convert<std::string>(get_suffix<affix>(v));
  v.*affix = joined(basic::convert<std::string>(value), suffix);
}
template <std::string DimVariables::*affix>
void put_suffix(DimVariables& v, const Value& value) {
  const auto prefix = basic::convert<std::string>(get_prefix<affix>(v));
  v.*affix = joined(prefix, basic::convert<std::string>(value));
}

enum ToleranceDisplay : std::int32_t { none, symmetrical, deviation, limits, basic_box };

Value get_tolerance_display(const DimVariables& v) {
  if (v.limits != 0) return std::int32_t{limits};
  if (v.tolerance != 0) return std::int32_t{v.plus == v.minus ? symmetrical : deviation};
  return std::int32_t{v.text_gap < 0 ? basic_box : none};
}

void put_tolerance_display(DimVariables& v, const Value& value) {
  const auto display = basic::convert<std::int32_t>(value);
  if (display < none || display > basic_box) throw failure(HostError::invalid_input);
  v.tolerance = display == symmetrical || display == deviation ? 1 : 0;
  v.limits = display == limits ? 1 : 0;
  if (display == symmetrical) v.minus = v.plus;
  v.text_gap = display == basic_box ? -std::abs(v.text_gap) : std::abs(v.text_gap);
}

/// Before AC1015 the units also tell whether fractions are stacked.
Value get_units(const DimVariables& v) {
  constexpr std::array<std::int32_t, 9> by_old{2, 1, 2, 3, 4, 5, 4, 5, 6};
  if (v.old_units <= 0 || v.old_units >= 9) return v.units;
  return by_old[static_cast<std::size_t>(v.old_units)];
}

void put_units(DimVariables& v, const Value& value) {
  const auto units = basic::convert<std::int32_t>(value);
  constexpr std::int32_t scientific = 1, desktop = 6, old_desktop = 8;
  if (units < scientific || units > desktop) throw failure(HostError::invalid_input);
  v.units = units;
  if (v.old_units > 0) v.old_units = units == desktop ? old_desktop : units;
}

template <bool second>
Value get_arrowhead(const DimVariables& v) {
  constexpr std::int32_t oblique = 5;
  if (v.tick_size > 0) return oblique;
  const std::string& own = second ? v.arrow2 : v.arrow1;
  return drawing::arrowhead_number(v.separate_arrows != 0 ? own : v.arrow);
}

template <bool second>
void put_arrowhead(DimVariables& v, const Value& value) {
  const auto number = basic::convert<std::int32_t>(value);
  if (number < 0 || number >= drawing::arrowhead_count) throw failure(HostError::invalid_input);
  if (v.separate_arrows == 0) v.arrow1 = v.arrow2 = v.arrow;
  v.separate_arrows = 1;
  v.tick_size = 0;
  (second ? v.arrow2 : v.arrow1) = drawing::arrowhead(number).block;
}

constexpr std::array dimension_variable_rows{
    zero_feet<&DimVariables::zeros>(Member::SuppressZeroFeet),
    zero_inches<&DimVariables::zeros>(Member::SuppressZeroInches),
    zero_feet<&DimVariables::tolerance_zeros>(Member::ToleranceSuppressZeroFeet),
    zero_inches<&DimVariables::tolerance_zeros>(Member::ToleranceSuppressZeroInches),
    Row{Member::TextPrefix, get_prefix<&DimVariables::affix>, put_prefix<&DimVariables::affix>},
    Row{Member::TextSuffix, get_suffix<&DimVariables::affix>, put_suffix<&DimVariables::affix>},
    Row{Member::AltTextPrefix, get_prefix<&DimVariables::alternate_affix>,
        put_prefix<&DimVariables::alternate_affix>},
    Row{Member::AltTextSuffix, get_suffix<&DimVariables::alternate_affix>,
        put_suffix<&DimVariables::alternate_affix>},
    Row{Member::ToleranceDisplay, get_tolerance_display, put_tolerance_display},
    Row{Member::UnitsFormat, get_units, put_units},
    Row{Member::Arrowhead1Type, get_arrowhead<false>, put_arrowhead<false>},
    Row{Member::Arrowhead2Type, get_arrowhead<true>, put_arrowhead<true>},
};

std::optional<Value> get(const DimVariables& v, Member member) {
  if (const auto* row = find_row(std::span<const Number>(numbers), member)) return v.*row->variable;
  if (const auto* row = find_row(std::span<const Choice>(choices), member)) return v.*row->variable;
  if (const auto* row = find_row(std::span<const Switch>(switches), member)) {
    const std::int32_t now = v.*row->variable;
    return row->bits == 0 ? now != 0 : (now & row->bits) != 0;
  }
  if (const auto* row = find_row(std::span<const Row>(dimension_variable_rows), member))
    return row->get(v);
  if (member == Member::TextStyle) return v.text_style.empty() ? "Standard" : v.text_style;
  return std::nullopt;
}

bool put(DimVariables& v, Member member, const Value& value) {
  if (const auto* row = find_row(std::span<const Number>(numbers), member)) {
    const double number = to_number(value);
    if (number < row->lowest || number > row->highest) throw failure(HostError::invalid_input);
    v.*row->variable = number;
  } else if (const auto* choice = find_row(std::span<const Choice>(choices), member)) {
    const auto number = basic::convert<std::int32_t>(value);
    if (number < 0 || number > choice->highest) throw failure(HostError::invalid_input);
    v.*choice->variable = number;
  } else if (const auto* one = find_row(std::span<const Switch>(switches), member)) {
    const bool on = basic::convert<bool>(value);
    std::int32_t& now = v.*one->variable;
    now = one->bits == 0 ? on : (on ? now | one->bits : now & ~one->bits);
  } else if (const auto* other = find_row(std::span<const Row>(dimension_variable_rows), member)) {
    other->put(v, value);
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::optional<Value> get_dimension_variable(const EntityObject& dimension, Member member) {
  return get(variables_of(dimension.drawing(), dimension.id()), member);
}

bool put_dimension_variable(EntityObject& dimension, Member member, const Value& value) {
  drawing::Drawing& drawing = dimension.drawing();
  DimVariables variables = variables_of(drawing, dimension.id());
  if (member == Member::TextStyle) {
    variables.text_style = require_row(drawing, "STYLE", basic::convert<std::string>(value));
  } else if (!put(variables, member, value)) {
    return false;
  }
  for (const std::string& block : {variables.arrow1, variables.arrow2}) {
    require_arrow_block(drawing, block);
  }
  write_variables(drawing, dimension.id(), variables);
  draw(drawing, dimension.id());
  return true;
}

}  // namespace velmar::embedded
