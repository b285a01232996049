#include "cli/sums.h"

#include <map>

#include "basic/number_text.h"
#include "cli/printable.h"
#include "cli/text_table.h"

namespace velmar::cli {
namespace {

using drawing::Drawing;
using drawing::RecordId;

struct Measure {
  std::optional<double> length, area;
};

Measure measure(const drawing::Body& body) {
  return std::visit(
      [](const auto& of) {
        Measure found;
        if constexpr (requires { length(of); }) found.length = length(of);
        if constexpr (requires { area(of); }) found.area = area(of);
        return found;
      },
      body);
}

void add(std::optional<double>& sum, const std::optional<double>& value) {
  if (value) sum = sum.value_or(0) + *value;
}

std::string number(const std::optional<double>& value) {
  return value ? basic::general(*value) : std::string();
}

/// A cell of CSV: in quotes where it has a separator. (RFC 4180.)
std::string cell(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == text.npos) return std::string(text);
  std::string quoted = "\"";
  for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + '"';
}

Json json_of(const std::optional<double>& value) { return value ? Json(*value) : Json(nullptr); }

Sum total(const std::vector<Sum>& all) {
  Sum total{"total", "", 0, {}, {}, 0};
  for (const Sum& sum : all) {
    total.count += sum.count;
    total.unmeasured += sum.unmeasured;
    add(total.length, sum.length);
    add(total.area, sum.area);
  }
  return total;
}

}  // namespace

std::vector<Sum> sums(const Drawing& drawing) {
  std::map<std::pair<std::size_t, std::string>, Sum> found;
  for (const RecordId id : drawing.entities(drawing::SpaceId::model)) {
    const drawing::LayerId layer = drawing.record(id).layer;
    const std::string kind(drawing.kind_name(id));
    Sum& sum = found[{index(layer), kind}];
    if (sum.count++ == 0) {
      sum.layer = layer == drawing::LayerId::none ? "0" : drawing.layer(layer).name;
      sum.kind = kind;
    }
    try {
      const Measure measured = measure(drawing.read_body(id));
      add(sum.length, measured.length);
      add(sum.area, measured.area);
    } catch (const drawing::Error&) {
      ++sum.unmeasured;  // --check says what is wrong with it
    }
  }
  std::vector<Sum> all;
  for (auto& [place, sum] : found) all.push_back(std::move(sum));
  return all;
}

Json sums_json(std::string_view file, const std::vector<Sum>& sums) {
  Json rows = Json::array();
  for (const Sum& sum : sums) {
    rows.push_back({{"layer", sum.layer},
                    {"kind", sum.kind},
                    {"count", sum.count},
                    {"length", json_of(sum.length)},
                    {"area", json_of(sum.area)},
                    {"unmeasured", sum.unmeasured}});
  }
  return {{"file", file}, {"sums", rows}};
}

std::string sums_text(std::string_view file, const std::vector<Sum>& sums) {
  using Side = TextTable::Side;
  TextTable table({Side::left, Side::left, Side::right, Side::right, Side::right});
  table.add({"layer", "kind", "count", "length", "area"});
  for (const Sum& sum : sums) {
    table.add({printable(sum.layer), printable(sum.kind), std::to_string(sum.count),
               number(sum.length), number(sum.area)});
  }
  const Sum all = total(sums);
  table.add({all.layer, "", std::to_string(all.count), number(all.length), number(all.area)});
  std::string text = printable(file) + ": lengths and areas of model space\n" + table.text(2);
  if (all.unmeasured > 0) {
    text += "  " + std::to_string(all.unmeasured) +
            " entities have values that cannot be read and are not in the sums: see --check\n";
  }
  return text;
}

std::string sums_csv(std::string_view file, const std::vector<Sum>& sums, bool heading) {
  std::string text = heading ? "file,layer,kind,count,length,area\r\n" : "";
  for (const Sum& sum : sums) {
    text += cell(file) + "," + cell(sum.layer) + "," + cell(sum.kind) + "," +
            std::to_string(sum.count) + "," + number(sum.length) + "," + number(sum.area) + "\r\n";
  }
  return text;
}

}  // namespace velmar::cli
