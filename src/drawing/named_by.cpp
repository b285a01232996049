#include "drawing/named_by.h"

#include <algorithm>
#include <array>

namespace velmar::drawing {
namespace {

constexpr std::array text{NameCode{7, Purgeable::text_style}};
constexpr std::array insert{NameCode{2, Purgeable::block}};
constexpr std::array dimension{NameCode{2, Purgeable::block},
                               NameCode{3, Purgeable::dimension_style}};
constexpr std::array leader{NameCode{3, Purgeable::dimension_style}};
constexpr std::array multiline{NameCode{2, Purgeable::multiline_style}};
constexpr std::array dimension_style{NameCode{5, Purgeable::block}, NameCode{6, Purgeable::block},
                                     NameCode{7, Purgeable::block}};

struct Row {
  std::string_view kind;
  std::span<const NameCode> codes;
};

constexpr std::array rows{
    Row{"TEXT", text},
    Row{"MTEXT", text},
    Row{"ATTRIB", text},
    Row{"ATTDEF", text},
    Row{"INSERT", insert},
    Row{"DIMENSION", dimension},
    Row{"LEADER", leader},
    Row{"TOLERANCE", leader},
    Row{"MLINE", multiline},
    Row{"DIMSTYLE", dimension_style},
    Row{"LINE", {}},
    Row{"ARC", {}},
    Row{"CIRCLE", {}},
    Row{"ELLIPSE", {}},
    Row{"LWPOLYLINE", {}},
    Row{"POLYLINE", {}},
    Row{"VERTEX", {}},
    Row{"SEQEND", {}},
    Row{"POINT", {}},
    Row{"SOLID", {}},
    Row{"TRACE", {}},
    Row{"3DFACE", {}},
    Row{"SPLINE", {}},
    Row{"RAY", {}},
    Row{"XLINE", {}},
    Row{"SHAPE", {}},
    Row{"HATCH", {}},
    Row{"VIEWPORT", {}},
    Row{"BLOCK", {}},
    Row{"ENDBLK", {}},
    Row{"LAYER", {}},
    Row{"LTYPE", {}},
    Row{"STYLE", {}},
    Row{"APPID", {}},
    Row{"VPORT", {}},
    Row{"VIEW", {}},
    Row{"UCS", {}},
    Row{"BLOCK_RECORD", {}},
    Row{"TABLE", {}},
    Row{"DICTIONARY", {}},
    Row{"ACDBDICTIONARYWDFLT", {}},
    Row{"LAYOUT", {}},
    Row{"GROUP", {}},
    Row{"MLINESTYLE", {}},
    Row{"CLASS", {}},
};

}  // namespace

std::optional<std::span<const NameCode>> name_codes(std::string_view kind_name) {
  const auto found = std::ranges::find(rows, kind_name, &Row::kind);
  if (found == rows.end()) return std::nullopt;
  return found->codes;
}

}  // namespace velmar::drawing
