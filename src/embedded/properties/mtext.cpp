#include <array>

#include "basic/conversion.h"
#include "embedded/errors.h"
#include "embedded/properties/checks.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::MText;

constexpr double line_pitch = 5.0 / 3;

std::int32_t choice(const Value& value, std::initializer_list<std::int32_t> allowed) {
  const auto chosen = basic::convert<std::int32_t>(value);
  for (const std::int32_t each : allowed) {
    if (chosen == each) return chosen;
  }
  throw failure(HostError::invalid_input);
}

void put_width(MText& text, const Value& value) {
  const double width = to_number(value);
  if (width < 0) throw failure(HostError::invalid_input);
  text.width = width;
}

void put_attachment(MText& text, const Value& value) {
  attach(text, choice(value, {1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

/// The host's limits for line spacing.
void put_spacing_factor(MText& text, const Value& value) {
  constexpr double narrowest = 0.25, widest = 4;
  const double factor = to_number(value);
  if (!(narrowest <= factor && factor <= widest)) throw failure(HostError::invalid_input);
  text.spacing_factor = factor;
}

double spacing_distance(const MText& text) {
  return text.spacing_factor * line_pitch * text.height;
}

void put_spacing_distance(MText& text, const Value& value) {
  put_spacing_factor(text, to_number(value) / (line_pitch * text.height));
}

constexpr std::array mtext_rows{
    Property<MText>{Member::Width, [](const MText& text) -> Value { return text.width; },
                    put_width},
    Property<MText>{Member::Rotation, [](const MText& text) -> Value { return rotation(text); },
                    [](MText& text, const Value& value) { set_rotation(text, to_number(value)); }},
    Property<MText>{Member::AttachmentPoint,
                    [](const MText& text) -> Value { return text.attachment; }, put_attachment},
    Property<MText>{Member::DrawingDirection, [](const MText& text) -> Value { return text.flow; },
                    [](MText& text, const Value& value) {
                      text.flow = choice(value, {1, 3, 5});
                    }},
    Property<MText>{Member::LineSpacingStyle,
                    [](const MText& text) -> Value { return text.spacing_style; },
                    [](MText& text, const Value& value) {
                      text.spacing_style = choice(value, {1, 2});
                    }},
    Property<MText>{Member::LineSpacingFactor,
                    [](const MText& text) -> Value { return text.spacing_factor; },
                    put_spacing_factor},
    Property<MText>{Member::LineSpacingDistance,
                    [](const MText& text) -> Value { return spacing_distance(text); },
                    put_spacing_distance},
};

}  // namespace

std::span<const Property<MText>> properties(const MText&) { return mtext_rows; }

}  // namespace velmar::embedded
