#include "drawing/tolerance_style.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "drawing/dxf/record_reader.h"
#include "drawing/dxf/tag.h"
#include "drawing/store.h"

namespace velmar::drawing {
namespace {

// Group codes of a dimension style; in extended data the numbers of its variables.
constexpr int scale_code = 40, height_code = 140, gap_code = 147;
constexpr int application_name_code = 1001, text_code = 1000, bracket_code = 1002,
              variable_code = 1070, real_code = 1040;
constexpr std::string_view application = "ACAD", group = "DSTYLE";

struct FrameStyle {
  double height = 0.18, gap = 0.09, scale = 1;
  std::string text_style;  // a handle
};

template <class Fields>
void fields(Fields& field, FrameStyle& style) {
  field.subclass("AcDbDimStyleTableRecord");
  field("", scale_code, style.scale);
  field("", height_code, style.height);
  field("", gap_code, style.gap);
  field("", 340, style.text_style);
}

std::optional<double> number(const std::string& text) {
  double value = 0;
  const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
  const auto [stop, error] = std::from_chars(text.data() + begin, text.data() + text.size(), value);
  if (error != std::errc()) return std::nullopt;
  return value;
}

/// Where the pairs of variable and value begin and end; both at the end where there are none.
struct Overrides {
  std::size_t begin, end;
};
Overrides find_overrides(const XData& data) {
  bool ours = false;
  for (std::size_t i = 0; i + 1 < data.size(); ++i) {
    if (data[i].first == application_name_code) ours = data[i].second == application;
    if (!ours || data[i] != std::pair(text_code, std::string(group))) continue;
    if (data[i + 1].first != bracket_code) continue;
    std::size_t end = i + 2;
    while (end < data.size() && data[end].first != bracket_code) ++end;
    return {i + 2, end};
  }
  return {data.size(), data.size()};
}

double* variable(Tolerance& tolerance, const std::string& code) {
  const auto asked = number(code);
  if (asked == scale_code) return &tolerance.scale;
  if (asked == height_code) return &tolerance.text_height;
  return asked == gap_code ? &tolerance.gap : nullptr;
}

/// Only the run of ACAD, with an empty group of overrides where it had none.
XData own_run(const XData& data) {
  XData run;
  bool ours = false;
  for (const auto& tag : data) {
    if (tag.first == application_name_code) ours = tag.second == application;
    if (ours) run.push_back(tag);
  }
  if (run.empty()) run.emplace_back(application_name_code, application);
  if (find_overrides(run).begin == run.size()) {
    run.insert(run.end(),
               {{text_code, std::string(group)}, {bracket_code, "{"}, {bracket_code, "}"}});
  }
  return run;
}

void set_override(XData& run, int code, double value) {
  const std::string text = dxf::real_bytes(value, dxf::Format{});
  const auto [begin, end] = find_overrides(run);
  for (std::size_t i = begin; i + 1 < end; i += 2) {
    if (number(run[i].second) != code) continue;
    run[i + 1] = {real_code, text};
    return;
  }
  const auto at = run.begin() + static_cast<std::ptrdiff_t>(end);
  run.insert(at, {{variable_code, std::to_string(code)}, {real_code, text}});
}

}  // namespace

void apply_dimension_style(const Store& store, const Drawing& drawing, Tolerance& tolerance) {
  FrameStyle style;
  const RecordId row = drawing.find_row("DIMSTYLE", tolerance.style);
  if (row != RecordId::none) dxf::RecordReader(store.bytes(row), store.format).read(style);
  tolerance.text_height = style.height;
  tolerance.gap = std::abs(style.gap);
  tolerance.scale = style.scale > 0 ? style.scale : 1;
  const RecordId text_style = drawing.find(parse_handle(style.text_style));
  const bool is_style =
      text_style != RecordId::none && drawing.record(text_style).kind == Kind::style;
  tolerance.look =
      drawing.look(is_style ? dxf::RecordReader(store.bytes(text_style), store.format).first_text(2)
                            : "Standard");
}

void read_overrides(Tolerance& tolerance, const XData& data) {
  const auto [begin, end] = find_overrides(data);
  for (std::size_t i = begin; i + 1 < end; i += 2) {
    double* const value = variable(tolerance, data[i].second);
    const auto given = number(data[i + 1].second);
    if (value && given && *given > 0) *value = *given;
  }
}

XData with_overrides(const Store& store, const Drawing& drawing, const Tolerance& tolerance,
                     const XData& data) {
  Tolerance present = tolerance;
  apply_dimension_style(store, drawing, present);
  read_overrides(present, data);
  const bool same_height = present.text_height == tolerance.text_height;
  const bool same_scale = present.scale == tolerance.scale;
  if (same_height && same_scale) return data;
  XData run = own_run(data);
  if (!same_height) set_override(run, height_code, tolerance.text_height);
  if (!same_scale) set_override(run, scale_code, tolerance.scale);
  return run;
}

}  // namespace velmar::drawing
