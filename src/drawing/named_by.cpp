#include "drawing/named_by.h"

#include <algorithm>
#include <array>

namespace velmar::drawing {
namespace {

constexpr std::array names_of_text{NameCode{7, Purgeable::text_style}};
constexpr std::array names_of_insert{NameCode{2, Purgeable::block}};
constexpr std::array names_of_dimension{NameCode{2, Purgeable::block},
                                        NameCode{3, Purgeable::dimension_style}};
constexpr std::array leader{NameCode{3, Purgeable::dimension_style}};
constexpr std::array multiline{NameCode{2, Purgeable::multiline_style}};
constexpr std::array dimension_style{NameCode{5, Purgeable::block}, NameCode{6, Purgeable::block},
                                     NameCode{7, Purgeable::block}};

struct NameRow {
  std::string_view kind;
  std::span<const NameCode> codes;
};

constexpr std::array name_rows{
    NameRow{"TEXT", names_of_text},
    NameRow{"MTEXT", names_of_text},
    NameRow{"ATTRIB", names_of_text},
    NameRow{"ATTDEF", names_of_text},
    NameRow{"INSERT", names_of_insert},
    NameRow{"DIMENSION", names_of_dimension},
    NameRow{"LEADER", leader},
    NameRow{"TOLERANCE", leader},
    NameRow{"MLINE", multiline},
    NameRow{"DIMSTYLE", dimension_style},
    NameRow{"LINE", {}},
    NameRow{"ARC", {}},
    NameRow{"CIRCLE", {}},
    NameRow{"ELLIPSE", {}},
    NameRow{"LWPOLYLINE", {}},
    NameRow{"POLYLINE", {}},
    NameRow{"VERTEX", {}},
    NameRow{"SEQEND", {}},
    NameRow{"POINT", {}},
    NameRow{"SOLID", {}},
    NameRow{"TRACE", {}},
    NameRow{"3DFACE", {}},
    NameRow{"SPLINE", {}},
    NameRow{"RAY", {}},
    NameRow{"XLINE", {}},
    NameRow{"SHAPE", {}},
    NameRow{"HATCH", {}},
    NameRow{"VIEWPORT", {}},
    NameRow{"BLOCK", {}},
    NameRow{"ENDBLK", {}},
    NameRow{"LAYER", {}},
    NameRow{"LTYPE", {}},
    NameRow{"STYLE", {}},
    NameRow{"APPID", {}},
    NameRow{"VPORT", {}},
    NameRow{"VIEW", {}},
    NameRow{"UCS", {}},
    NameRow{"BLOCK_RECORD", {}},
    NameRow{"TABLE", {}},
    NameRow{"DICTIONARY", {}},
    NameRow{"ACDBDICTIONARYWDFLT", {}},
    NameRow{"LAYOUT", {}},
    NameRow{"GROUP", {}},
    NameRow{"MLINESTYLE", {}},
    NameRow{"CLASS", {}},
};

}  // namespace

std::optional<std::span<const NameCode>> name_codes(std::string_view kind_name) {
  const auto found = std::ranges::find(name_rows, kind_name, &NameRow::kind);
  if (found == name_rows.end()) return std::nullopt;
  return found->codes;
}

}  // namespace velmar::drawing
