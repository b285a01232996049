#pragma once

#include <cstdint>
#include <string>

#include "drawing/entities/field.h"

namespace velmar::drawing {

/// The dimension variables: what a row of the DIMSTYLE table, the header and the overrides of a
/// dimension say of how it is drawn. Lengths but those named as such are multiplied by `scale`.
struct DimVariables {
  // Sizes.
  double scale = 1;          // DIMSCALE; 0 counts as 1
  double arrow_size = 0.18;  //
  double extension_offset = 0.0625;
  double line_spacing = 0.38;
  double extension_beyond = 0.18;  // past the dimension line
  double line_beyond = 0;          // past the extension lines, where there are ticks
  double text_height = 0.18;
  double center_size = 0.09;
  double tick_size = 0;    // above 0: ticks in place of arrows
  double text_gap = 0.09;  // below 0: and a box around the text
  double text_shift = 0;   // of a text in the line, in text heights

  // The number and its text.
  double length_factor = 1;
  double rounding = 0;
  std::string affix;  // "prefix<>suffix", or the suffix alone
  std::int32_t units = 2;
  std::int32_t old_units = 0;  // before AC1015; 0: `units` counts
  std::int32_t decimals = 4;
  std::int32_t zeros = 0;     // what is suppressed: 4 leading, 8 trailing, 0 to 3 feet and inches
  std::int32_t fraction = 0;  // 0 horizontal, 1 diagonal, 2 not stacked
  std::int32_t separator = '.';

  // Alternate units.
  std::int32_t alternate = 0;
  double alternate_factor = 25.4, alternate_rounding = 0;
  std::int32_t alternate_decimals = 2, alternate_units = 2, alternate_zeros = 0;
  std::string alternate_affix;

  // Tolerances.
  std::int32_t tolerance = 0, limits = 0;
  double plus = 0, minus = 0;
  double tolerance_height = 1;
  std::int32_t tolerance_decimals = 4, tolerance_zeros = 0, tolerance_place = 1;

  // Where things go.
  std::int32_t inside_horizontal = 1, outside_horizontal = 1;
  std::int32_t vertical = 0;    // 0 in the line, 1 above, 2 outside, 3 JIS, 4 below
  std::int32_t horizontal = 0;  // 0 centred, 1, 2 beside an extension line, 3, 4 over it
  std::int32_t text_inside = 0, line_inside = 0, no_outside_line = 0;
  std::int32_t fit = 3;
  std::int32_t text_movement = 0;

  // What is left out.
  std::int32_t no_extension1 = 0, no_extension2 = 0, no_line1 = 0, no_line2 = 0;

  // How things look.
  std::int32_t line_color = 0, extension_color = 0, text_color = 0;
  std::int32_t line_weight = -2, extension_weight = -2;
  std::int32_t separate_arrows = 0;   // arrow1 and arrow2 count in place of arrow
  std::string arrow, arrow1, arrow2;  // names of blocks; empty: closed and filled
  std::string text_style;             // empty: Standard

  double factor() const { return scale == 0 ? 1 : scale; }
  std::int32_t linear_units() const { return old_units != 0 ? old_units : units; }
};

/// The list of those that are kept as they are; see also the names below.
template <class Fields>
void fields(Fields& field, DimVariables& v) {
  field.subclass("AcDbDimStyleTableRecord");
  field("DIMPOST", 3, v.affix, unless{std::string()});
  field("DIMAPOST", 4, v.alternate_affix, unless{std::string()});
  field("DIMSCALE", 40, v.scale, unless{1.0});
  field("DIMASZ", 41, v.arrow_size, unless{0.18});
  field("DIMEXO", 42, v.extension_offset, unless{0.0625});
  field("DIMDLI", 43, v.line_spacing, unless{0.38});
  field("DIMEXE", 44, v.extension_beyond, unless{0.18});
  field("DIMRND", 45, v.rounding, unless{0.0});
  field("DIMDLE", 46, v.line_beyond, unless{0.0});
  field("DIMTP", 47, v.plus, unless{0.0});
  field("DIMTM", 48, v.minus, unless{0.0});
  field("DIMTXT", 140, v.text_height, unless{0.18});
  field("DIMCEN", 141, v.center_size, unless{0.09});
  field("DIMTSZ", 142, v.tick_size, unless{0.0});
  field("DIMALTF", 143, v.alternate_factor, unless{25.4});
  field("DIMLFAC", 144, v.length_factor, unless{1.0});
  field("DIMTVP", 145, v.text_shift, unless{0.0});
  field("DIMTFAC", 146, v.tolerance_height, unless{1.0});
  field("DIMGAP", 147, v.text_gap, unless{0.09});
  field("DIMALTRND", 148, v.alternate_rounding, unless{0.0});
  field("DIMTOL", 71, v.tolerance, unless{0});
  field("DIMLIM", 72, v.limits, unless{0});
  field("DIMTIH", 73, v.inside_horizontal, unless{1});
  field("DIMTOH", 74, v.outside_horizontal, unless{1});
  field("DIMSE1", 75, v.no_extension1, unless{0});
  field("DIMSE2", 76, v.no_extension2, unless{0});
  field("DIMTAD", 77, v.vertical, unless{0});
  field("DIMZIN", 78, v.zeros, unless{0});
  field("DIMALT", 170, v.alternate, unless{0});
  field("DIMALTD", 171, v.alternate_decimals, unless{2});
  field("DIMTOFL", 172, v.line_inside, unless{0});
  field("DIMSAH", 173, v.separate_arrows, unless{0});
  field("DIMTIX", 174, v.text_inside, unless{0});
  field("DIMSOXD", 175, v.no_outside_line, unless{0});
  field("DIMCLRD", 176, v.line_color, unless{0});
  field("DIMCLRE", 177, v.extension_color, unless{0});
  field("DIMCLRT", 178, v.text_color, unless{0});
  field("DIMUNIT", 270, v.old_units, unless{0});
  field("DIMDEC", 271, v.decimals, unless{4});
  field("DIMTDEC", 272, v.tolerance_decimals, unless{4});
  field("DIMALTU", 273, v.alternate_units, unless{2});
  field("DIMFRAC", 276, v.fraction, unless{0});
  field("DIMLUNIT", 277, v.units, unless{2});
  field("DIMDSEP", 278, v.separator, unless{std::int32_t{'.'}});
  field("DIMTMOVE", 279, v.text_movement, unless{0});
  field("DIMJUST", 280, v.horizontal, unless{0});
  field("DIMSD1", 281, v.no_line1, unless{0});
  field("DIMSD2", 282, v.no_line2, unless{0});
  field("DIMTOLJ", 283, v.tolerance_place, unless{1});
  field("DIMTZIN", 284, v.tolerance_zeros, unless{0});
  field("DIMALTZ", 285, v.alternate_zeros, unless{0});
  field("DIMATFIT", 289, v.fit, unless{3});
  field("DIMLWD", 371, v.line_weight, unless{-2});
  field("DIMLWE", 372, v.extension_weight, unless{-2});
}

/// The variables that name a row of another table: by its handle under `code`, or, before AC1015,
/// by its name under `old_code` (0: nowhere).
struct NamedVariable {
  const char* name;
  int code, old_code;
  const char* table;
  std::string DimVariables::*value;
};
inline constexpr NamedVariable named_variables[] = {
    {"DIMTXSTY", 340, 0, "STYLE", &DimVariables::text_style},
    {"DIMBLK", 342, 5, "BLOCK_RECORD", &DimVariables::arrow},
    {"DIMBLK1", 343, 6, "BLOCK_RECORD", &DimVariables::arrow1},
    {"DIMBLK2", 344, 7, "BLOCK_RECORD", &DimVariables::arrow2},
};

}  // namespace velmar::drawing
