#include <array>

#include "basic/conversion.h"
#include "embedded/errors.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Attrib;
using drawing::Text;

constexpr std::int32_t backward = 2, upside_down = 4, invisible = 1, constant = 2, verify = 4,
                       preset = 8;

// AcAlignment: 0 to 5 are the horizontal alignments on the baseline, then rows of left, centre and
// right from the top row down: 6 top, 9 middle, 12 bottom.
constexpr std::int32_t first_row = 6, last_alignment = 14, in_a_row = 3, top = 3;

std::int32_t alignment(const Text& text) {
  if (text.vertical == 0) return text.horizontal;
  return first_row + (top - text.vertical) * in_a_row + text.horizontal;
}

void put_alignment(Text& text, const Value& value) {
  const auto chosen = basic::convert<std::int32_t>(value);
  if (chosen < 0 || chosen > last_alignment) throw failure(HostError::invalid_input);
  const bool in_rows = chosen >= first_row;
  text.horizontal = in_rows ? (chosen - first_row) % in_a_row : chosen;
  text.vertical = in_rows ? top - (chosen - first_row) / in_a_row : 0;
  if (chosen == 0) text.alignment_point = {};
}

template <std::int32_t bit>
Value get_generation(const Text& text) {
  return (text.generation & bit) != 0;
}

template <std::int32_t bit>
void put_generation(Text& text, const Value& value) {
  text.generation = basic::convert<bool>(value) ? text.generation | bit : text.generation & ~bit;
}

template <std::int32_t bit>
Value get_flag(const Attrib& attrib) {
  return (attrib.flags & bit) != 0;
}

void put_invisible(Attrib& attrib, const Value& value) {
  attrib.flags = basic::convert<bool>(value) ? attrib.flags | invisible : attrib.flags & ~invisible;
}

constexpr std::array text_rows{
    Property<Text>{Member::Alignment, [](const Text& text) -> Value { return alignment(text); },
                   put_alignment},
    Property<Text>{Member::Backward, get_generation<backward>, put_generation<backward>},
    Property<Text>{Member::UpsideDown, get_generation<upside_down>, put_generation<upside_down>},
};

constexpr std::array attrib_rows{
    Property<Attrib>{Member::Invisible, get_flag<invisible>, put_invisible},
    Property<Attrib>{Member::Constant, get_flag<constant>},
    Property<Attrib>{Member::Verify, get_flag<verify>},
    Property<Attrib>{Member::Preset, get_flag<preset>},
};

}  // namespace

std::span<const Property<Text>> properties(const Text&) { return text_rows; }
std::span<const Property<Attrib>> properties(const Attrib&) { return attrib_rows; }

}  // namespace velmar::embedded
