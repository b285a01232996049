#include "drawing/convert/r12_viewport.h"

#include <array>
#include <span>

#include "drawing/convert/r12_entities.h"
#include "drawing/name.h"

namespace velmar::drawing {
namespace {

/// What stands in MVIEW, in its order; the codes are those of later releases, 0 where these have
/// flags (group 90) for it. (DXF reference, R12, "VIEWPORT".)
struct ViewValue {
  int xdata_code, code;
  double otherwise;
};
constexpr auto view_values = std::to_array<ViewValue>({
    {1040, 51, 0},     // twist
    {1040, 45, 1},     // height of the view
    {1040, 12, 0},     // its centre
    {1040, 22, 0},     //
    {1040, 42, 50},    // lens length
    {1040, 43, 0},     // front and back clipping plane
    {1040, 44, 0},     //
    {1070, 0, 0},      // view mode
    {1070, 72, 1000},  // circle zoom percent
    {1070, 0, 1},      // fast zoom
    {1070, 71, 1},     // UCS icon
    {1070, 0, 0},      // snap, grid, snap style, isometric pair
    {1070, 0, 0},      //
    {1070, 0, 0},      //
    {1070, 0, 0},      //
    {1040, 50, 0},     // snap angle, base, spacing; grid spacing
    {1040, 13, 0},     //
    {1040, 23, 0},     //
    {1040, 14, 0.5},   //
    {1040, 24, 0.5},   //
    {1040, 15, 0.5},   //
    {1040, 25, 0.5},   //
    {1070, 0, 0},      // hidden lines in plots
});

TagValue number_tag(int code, double value) {
  if (code == 1070 || code == 71 || code == 72) return {code, static_cast<std::int64_t>(value)};
  return {code, value};
}

double number_of(const TagValue& tag) {
  if (const auto* const real = std::get_if<double>(&tag.value)) return *real;
  const auto* const integer = std::get_if<std::int64_t>(&tag.value);
  return integer != nullptr ? static_cast<double>(*integer) : 0;
}

double value_of(const Tags& tags, int code, double otherwise) {
  const TagValue* const tag = code != 0 ? find_tag(tags, code) : nullptr;
  return tag != nullptr ? number_of(*tag) : otherwise;
}

void add_xdata_point(Tags& tags, int code, const std::array<double, 3>& point) {
  for (int i = 0; i < 3; ++i) add_real(tags, code + 10 * i, point[static_cast<std::size_t>(i)]);
}

/// Behind the view centre and direction.
void add_view(Tags& to, const Tags& from) {
  add_xdata_point(to, 1010, {real_of(from, 17), real_of(from, 27), real_of(from, 37)});
  add_xdata_point(to, 1010, {real_of(from, 16), real_of(from, 26), real_of(from, 36, 1)});
  for (const ViewValue& value : view_values) {
    to.push_back(number_tag(value.xdata_code, value_of(from, value.code, value.otherwise)));
  }
}

bool is_frozen_layer(int code) { return code == 331 || code == 341; }

/// MVIEW in extended data: from its brace to the end of it; empty where there is none.
std::span<const TagValue> view_data(const Tags& tags) {
  for (std::size_t i = 0; i + 1 < tags.size(); ++i) {
    const auto* const text = std::get_if<std::string>(&tags[i].value);
    if (tags[i].code == 1000 && text != nullptr && *text == "MVIEW") {
      return std::span(tags).subspan(i + 1);
    }
  }
  return {};
}

struct MView {
  std::array<double, 6> points{0, 0, 0, 0, 0, 1};  // target, direction
  std::vector<double> values;
  std::vector<std::string> frozen;
};

MView read_view(std::span<const TagValue> data) {
  MView view;
  std::size_t points = 0;
  bool is_version = true;
  for (const TagValue& tag : data) {
    if (tag.code == 1001) break;
    const auto* const text = std::get_if<std::string>(&tag.value);
    if (tag.code == 1003 && text != nullptr) view.frozen.push_back(*text);
    if (tag.code >= 1010 && tag.code <= 1030 && points < view.points.size()) {
      view.points[points++] = number_of(tag);
    }
    if (tag.code == 1070 && is_version) {
      is_version = false;
    } else if (tag.code == 1040 || tag.code == 1070) {
      view.values.push_back(number_of(tag));
    }
  }
  return view;
}

}  // namespace

void lower_viewport(TagRecord& viewport, const std::map<Handle, std::string>& layer_names) {
  Tags lowered = common_tags(viewport);
  for (const int code : {10, 20, 30, 40, 41, 68, 69}) {
    if (const TagValue* const tag = find_tag(viewport.tags, code)) lowered.push_back(*tag);
  }
  lowered.insert(lowered.end(), {{1001, "ACAD"}, {1000, "MVIEW"}, {1002, "{"}});
  lowered.push_back({1070, std::int64_t{16}});
  add_view(lowered, viewport.tags);
  lowered.push_back({1002, "{"});
  for (const TagValue& tag : viewport.tags) {
    const auto name =
        is_frozen_layer(tag.code) ? layer_names.find(handle_of(tag)) : layer_names.end();
    if (name != layer_names.end()) lowered.push_back({1003, name->second});
  }
  lowered.insert(lowered.end(), {{1002, "}"}, {1002, "}"}});
  viewport.tags = std::move(lowered);
}

void lift_viewport(TagRecord& viewport, const std::map<std::string, Handle>& layer_handles) {
  const MView view = read_view(view_data(viewport.tags));
  Tags lifted = common_tags(viewport);
  insert_tag(lifted, 0, {100, "AcDbEntity"});
  lifted.push_back({100, "AcDbViewport"});
  for (const int code : {10, 20, 30, 40, 41, 68, 69}) {
    if (const TagValue* const tag = find_tag(viewport.tags, code)) lifted.push_back(*tag);
  }
  const auto& points = view.points;
  for (std::size_t i = 0; i < view_values.size(); ++i) {
    const ViewValue& value = view_values[i];
    const double number = i < view.values.size() ? view.values[i] : value.otherwise;
    if (value.code != 0) lifted.push_back(number_tag(value.code, number));
    if (value.code == 25) {  // behind the grid, where later releases have them
      add_xdata_point(lifted, 16, {points[3], points[4], points[5]});
      add_xdata_point(lifted, 17, {points[0], points[1], points[2]});
    }
  }
  constexpr std::int64_t icon_at_origin = 32, fast_zoom = 128;
  for (const std::string& name : view.frozen) {
    const auto layer = layer_handles.find(folded_name(name));
    if (layer != layer_handles.end()) lifted.push_back(handle_tag(331, layer->second));
  }
  lifted.push_back({90, icon_at_origin | fast_zoom});
  lifted.insert(lifted.end(), {{1, ""}, {281, std::int64_t{0}}, {74, std::int64_t{0}}});
  add_xdata_point(lifted, 110, {0, 0, 0});
  add_xdata_point(lifted, 111, {1, 0, 0});
  add_xdata_point(lifted, 112, {0, 1, 0});
  lifted.insert(lifted.end(), {{79, std::int64_t{0}}, {146, 0.0}});
  viewport.tags = std::move(lifted);
}

}  // namespace velmar::drawing
