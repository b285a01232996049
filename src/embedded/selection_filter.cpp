#include "embedded/selection_filter.h"

#include <algorithm>
#include <array>

#include "basic/conversion.h"
#include "basic/number_text.h"
#include "embedded/errors.h"
#include "embedded/wildcard.h"

namespace velmar::embedded {
namespace {

using drawing::Drawing;
using drawing::RecordId;

bool name_matches(const Value& patterns, std::string_view name) {
  return matches(basic::convert<std::string>(patterns), name);
}

bool kind_passes(const Drawing& drawing, RecordId id, const Value& value) {
  return name_matches(value, drawing.kind_name(id));
}

bool block_passes(const Drawing& drawing, RecordId id, const Value& value) {
  if (drawing.record(id).kind != drawing::Kind::insert) return false;
  const drawing::Body body = drawing.read_body(id);
  return name_matches(value, std::get<drawing::Insert>(body).block);
}

bool layer_passes(const Drawing& drawing, RecordId id, const Value& value) {
  const drawing::LayerId layer = drawing.record(id).layer;
  return name_matches(value, layer == drawing::LayerId::none ? "0" : drawing.layer(layer).name);
}

bool color_passes(const Drawing& drawing, RecordId id, const Value& value) {
  return basic::convert<std::int32_t>(value) == drawing.record(id).color;
}

bool layout_passes(const Drawing& drawing, RecordId id, const Value& value) {
  const drawing::SpaceId space = drawing.record(id).space;
  return std::ranges::any_of(drawing.layouts(), [&](const drawing::Layout& layout) {
    return layout.space == space && name_matches(value, layout.name);
  });
}

struct Test {
  std::int32_t code;
  bool (*passes)(const Drawing&, RecordId, const Value&);
};
constexpr std::array tests{Test{0, kind_passes}, Test{2, block_passes}, Test{8, layer_passes},
                           Test{62, color_passes}, Test{410, layout_passes}};

std::vector<Value> items(const Value& value, std::string_view parameter, Member method) {
  if (const auto* list = value.if_is<basic::List>()) return *list;
  if (const auto* numbers = value.if_is<basic::Doubles>())
    return {numbers->begin(), numbers->end()};
  throw invalid_argument(parameter, method);
}

}  // namespace

SelectionFilter SelectionFilter::from(const Arguments& arguments, std::size_t position) {
  SelectionFilter filter;
  const Member method = arguments.method();
  const bool has_codes = arguments.has(position), has_values = arguments.has(position + 1);
  if (!has_codes && !has_values) return filter;
  if (!has_values) throw invalid_argument("FilterData", method);
  if (!has_codes) throw invalid_argument("FilterType", method);
  const auto codes = items(arguments[position], "FilterType", method);
  const auto values = items(arguments[position + 1], "FilterData", method);
  if (codes.size() != values.size()) throw failure(HostError::wrong_element_count);
  for (std::size_t i = 0; i < codes.size(); ++i) {
    const auto code = basic::convert<std::int32_t>(codes[i]);
    if (std::ranges::find(tests, code, &Test::code) == tests.end()) {
      basic::Failure refused = invalid_argument("FilterType", method);
      refused.description += ": group codes are 0, 2, 8, 62 and 410, not " + basic::general(code);
      throw refused;
    }
    filter.conditions_.push_back({code, values[i]});
  }
  return filter;
}

std::vector<RecordId> SelectionFilter::passed(const Drawing& drawing,
                                              std::vector<RecordId> entities) const {
  std::erase_if(entities, [&](RecordId id) {
    return drawing.record(id).is(drawing::Record::erased) || !passes(drawing, id);
  });
  return entities;
}

bool SelectionFilter::passes(const Drawing& drawing, RecordId id) const {
  return std::ranges::all_of(conditions_, [&](const Condition& condition) {
    return std::ranges::find(tests, condition.code, &Test::code)
        ->passes(drawing, id, condition.value);
  });
}

}  // namespace velmar::embedded
