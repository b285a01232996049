#include "drawing/dimension/styles.h"

#include <algorithm>

#include "drawing/dxf/tag.h"

namespace velmar::drawing {
namespace {

bool has_handles_of_rows(const Drawing& drawing) { return drawing.version() >= "AC1015"; }

/// The name of the row whose handle is given, empty where there is none.
std::string name_of(const Drawing& drawing, std::string_view handle) {
  const RecordId row = drawing.find(parse_handle(handle));
  return row == RecordId::none ? std::string() : drawing.row_text(row, 2);
}

/// Header variables by the names of the fields.
class HeaderReader {
 public:
  explicit HeaderReader(const HeaderVariables& header) : header_(header) {}

  void subclass(std::string_view) {}
  template <class Value, class Default>
  void operator()(std::string_view name, int code, Value&, const Default&) {
    const auto found = header_.find("$" + std::string(name));
    if (found != header_.end()) values.push_back({code, 0, found->second});
  }
  Overrides values;

 private:
  const HeaderVariables& header_;
};

/// Before AC1014 the units of dimensions were those of the drawing.
void take_units_of_drawing(const Drawing& drawing, DimVariables& variables) {
  Overrides units;
  if (const auto given = drawing.header("$LUNITS")) units.push_back({277, 0, *given});
  if (const auto given = drawing.header("$LUPREC")) {
    for (const int decimals : {271, 272}) units.push_back({decimals, 0, *given});
  }
  take_overrides(units, variables);
}

DimVariables header_variables(const Drawing& drawing) {
  DimVariables variables;
  const HeaderVariables header = drawing.header_variables();
  HeaderReader reader(header);
  fields(reader, variables);
  take_overrides(reader.values, variables);
  for (const NamedVariable& row : named_variables) {
    const auto found = header.find("$" + std::string(row.name));
    variables.*row.value = found == header.end() ? std::string() : found->second;
  }
  return variables;
}

void read_named(const Drawing& drawing, RecordId style, DimVariables& variables) {
  const bool by_handle = has_handles_of_rows(drawing);
  for (const NamedVariable& row : named_variables) {
    const int code = by_handle || row.old_code == 0 ? row.code : row.old_code;
    const std::string text = drawing.row_text(style, code);
    variables.*row.value = code == row.code ? name_of(drawing, text) : text;
  }
}

Override named_override(const Drawing& drawing, const NamedVariable& row, const std::string& name) {
  constexpr int text = 1000, handle = 1005;
  if (!has_handles_of_rows(drawing) && row.old_code != 0) return {row.old_code, text, name};
  const RecordId found = drawing.find_row(row.table, name);
  const Handle number = found == RecordId::none ? 0 : drawing.record(found).handle;
  return {row.code, handle, handle_text(number)};
}

}  // namespace

DimVariables style_variables(const Drawing& drawing, std::string_view style) {
  const RecordId row = drawing.find_row("DIMSTYLE", style);
  DimVariables variables;
  if (row == RecordId::none) {
    variables = header_variables(drawing);
  } else {
    variables = drawing.read_dim_style(row);
    read_named(drawing, row, variables);
  }
  if (drawing.version() < "AC1012") take_units_of_drawing(drawing, variables);
  if (has_handles_of_rows(drawing)) variables.old_units = 0;
  return variables;
}

DimVariables variables_of(const Drawing& drawing, RecordId dimension) {
  const Body body = drawing.read_body(dimension);
  DimVariables variables = style_variables(drawing, std::get<Dimension>(body).style);
  const Overrides overrides = overrides_in(drawing.read_xdata(dimension));
  take_overrides(overrides, variables);
  for (const NamedVariable& row : named_variables) {
    for (const int code : {row.old_code, row.code}) {
      const auto found = std::ranges::find(overrides, code, &Override::variable);
      if (code == 0 || found == overrides.end()) continue;
      variables.*row.value = code == row.code ? name_of(drawing, found->value) : found->value;
    }
  }
  if (has_handles_of_rows(drawing)) variables.old_units = 0;
  return variables;
}

double measured(const Drawing& drawing, RecordId id) {
  const auto dimension = std::get<Dimension>(drawing.read_body(id));
  const double plain = measurement(dimension);
  if (dimension.is_angular()) return plain;
  const double factor = variables_of(drawing, id).length_factor;
  const bool in_paper = drawing.record(id).space != SpaceId::model;
  if (factor < 0) return in_paper ? plain * -factor : plain;
  return factor > 0 ? plain * factor : plain;
}

void write_variables(Drawing& drawing, RecordId dimension, const DimVariables& wanted) {
  const DimVariables now = variables_of(drawing, dimension);
  Overrides changed = differences(now, wanted);
  for (const NamedVariable& row : named_variables) {
    const std::string& name = wanted.*row.value;
    if (name != now.*row.value) changed.push_back(named_override(drawing, row, name));
  }
  if (changed.empty()) return;
  const ExtendedData data = drawing.read_xdata(dimension);
  Overrides overrides = overrides_in(data);
  for (Override& one : changed) set(overrides, std::move(one));
  drawing.write_xdata(dimension, with_overrides(data, overrides));
}

}  // namespace velmar::drawing
