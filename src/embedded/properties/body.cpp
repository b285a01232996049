#include "embedded/properties/body.h"

#include "embedded/errors.h"
#include "embedded/properties/fields.h"
#include "embedded/properties/kinds.h"

namespace velmar::embedded {
namespace {

using drawing::Attrib;
using drawing::Body;
using drawing::Point;
using drawing::Text;

template <class Kind>
concept HasNormal = requires(Kind& kind) {
  kind.normal;
};
template <class Kind>
concept IsText = std::derived_from<Kind, Text>;

template <class Kind>
Point normal_of(const Kind& kind) {
  if constexpr (HasNormal<Kind>) return kind.normal;
  return drawing::z_axis;
}

template <class Kind>
std::optional<Value> get_row(const Kind& kind, Member member) {
  if (const auto* row = find_row(properties(kind), member)) return row->get(kind);
  return std::nullopt;
}

template <class Kind>
bool put_row(Kind& kind, Member member, const Value& value) {
  const auto* row = find_row(properties(kind), member);
  if (!row) return false;
  if (!row->put) throw no_such_member(member);
  row->put(kind, value);
  return true;
}

/// Points that are kept in the plane of the old normal stay where they are in the world.
template <HasNormal Kind>
void put_normal(Kind& kind, const Value& value) {
  const Point given = to_point(value, "Normal", Member::Normal);
  const double size = norm(given);
  if (!(size > 0)) throw failure(HostError::invalid_input);
  const Point normal = given * (1 / size);
  if constexpr (std::same_as<Kind, drawing::Ellipse>) {
    const bool flat = std::abs(dot(normal, kind.major_axis)) <= 1e-9 * norm(kind.major_axis);
    if (!flat) throw failure(HostError::invalid_input);
  }
  MapOcsPoints keep_in_place(drawing::world_to_ocs(normal) * drawing::ocs_to_world(kind.normal));
  fields(keep_in_place, kind);
  kind.normal = normal;
}

/// Whether both points place the text; else InsertionPoint follows from TextAlignmentPoint.
bool is_stretched(const Text& text) { return text.horizontal == 3 || text.horizontal == 5; }

void require_alignment_point_used(const Text& text, Member member) {
  const bool by_insertion = text.horizontal == 0 && text.vertical == 0;
  if (member == Member::TextAlignmentPoint && by_insertion) {
    throw failure(HostError::invalid_input);
  }
}

template <class Kind>
bool put_field(const drawing::Drawing& drawing, Kind& kind, Member member, const Value& value) {
  if constexpr (HasNormal<Kind>) {
    if (member == Member::Normal && !hides(kind, member)) {
      put_normal(kind, value);
      return true;
    }
  }
  FieldPut put(drawing, member, normal_of(kind), value);
  fields(put, kind);
  return put.done;
}

template <class Kind>
const Method<Kind>* find_method(const Kind& kind, Member member, std::size_t arguments) {
  const Method<Kind>* nearest = nullptr;
  for (const Method<Kind>& row : methods(kind)) {
    if (row.member != member) continue;
    if (arguments >= row.required && arguments <= row.at_most) return &row;
    nearest = &row;
  }
  return nearest;
}

}  // namespace

std::optional<Value> get_property(const Body& body, Member member) {
  return std::visit(
      [&]<class Kind>(const Kind& kind) -> std::optional<Value> {
        if (hides(kind, member)) return std::nullopt;
        if (auto found = get_row(kind, member)) return found;
        if constexpr (std::derived_from<Kind, Attrib>) {
          if (auto found = get_row<Attrib>(kind, member)) return found;
          if (auto found = get_row<Text>(kind, member)) return found;
        }
        FieldGet get(member, normal_of(kind));
        fields(get, const_cast<Kind&>(kind));  // FieldGet takes every field as const
        return std::move(get.found);
      },
      body);
}

bool put_property(const drawing::Drawing& drawing, Body& body, Member member, const Value& value) {
  const bool found = std::visit(
      [&]<class Kind>(Kind& kind) {
        if (hides(kind, member)) return false;
        if constexpr (IsText<Kind>) require_alignment_point_used(kind, member);
        bool done = put_row(kind, member, value);
        if constexpr (std::derived_from<Kind, Attrib>) {
          done = done || put_row<Attrib>(kind, member, value) || put_row<Text>(kind, member, value);
        }
        return done || put_field(drawing, kind, member, value);
      },
      body);
  if (!found) return false;
  if (member == Member::StyleName) drawing.apply_style(body);
  std::visit(
      []<class Kind>(Kind& kind) {
        if constexpr (IsText<Kind>) {
          if (!is_stretched(kind)) place(kind);
        }
      },
      body);
  return true;
}

std::optional<Effect> method_effect(const Body& body, Member member, std::size_t arguments) {
  return std::visit(
      [&](const auto& kind) -> std::optional<Effect> {
        const auto* row = find_method(kind, member, arguments);
        return row ? std::optional(row->effect) : std::nullopt;
      },
      body);
}

Value call_method(Body& body, Member member, std::span<Value> values) {
  return std::visit(
      [&](auto& kind) {
        const auto* row = find_method(kind, member, values.size());
        Arguments arguments(member, values, row->required, row->at_most);
        return row->call(kind, arguments);
      },
      body);
}

}  // namespace velmar::embedded
