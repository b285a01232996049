#include "drawing/convert/required_tables.h"

#include <algorithm>
#include <array>
#include <set>

#include "drawing/name.h"

namespace velmar::drawing {
namespace {

constexpr std::int64_t no_flags = 0;

/// A table in its place, with the class of its rows and those that it must have.
struct TableRule {
  std::string_view name, row_class;
  std::vector<std::string_view> rows;
};
const std::vector<TableRule>& table_rules() {
  static const std::vector<TableRule> rules{
      {"VPORT", "AcDbViewportTableRecord", {"*Active"}},
      {"LTYPE", "AcDbLinetypeTableRecord", {"ByBlock", "ByLayer", "Continuous"}},
      {"LAYER", "AcDbLayerTableRecord", {"0"}},
      {"STYLE", "AcDbTextStyleTableRecord", {"Standard"}},
      {"VIEW", "AcDbViewTableRecord", {}},
      {"UCS", "AcDbUCSTableRecord", {}},
      {"APPID", "AcDbRegAppTableRecord", {"ACAD"}},
      {"DIMSTYLE", "AcDbDimStyleTableRecord", {"Standard"}},
      {"BLOCK_RECORD", "AcDbBlockTableRecord", {}},
  };
  return rules;
}

/// What a row has behind its name and flags.
Tags standard_values(std::string_view table) {
  if (table == "LTYPE") return {{3, ""}, {72, std::int64_t{65}}, {73, no_flags}, {40, 0.0}};
  if (table == "LAYER") {
    return {{62, std::int64_t{7}}, {6, "Continuous"}, {370, std::int64_t{-3}}};
  }
  if (table == "STYLE") {
    return {{40, 0.0}, {41, 1.0}, {50, 0.0}, {71, no_flags}, {42, 2.5}, {3, "txt"}, {4, ""}};
  }
  if (table != "VPORT") return {};
  return {{10, 0.0},
          {20, 0.0},
          {11, 1.0},
          {21, 1.0},
          {12, 0.0},
          {22, 0.0},
          {13, 0.0},
          {23, 0.0},
          {14, 0.5},
          {24, 0.5},
          {15, 0.5},
          {25, 0.5},
          {16, 0.0},
          {26, 0.0},
          {36, 1.0},
          {17, 0.0},
          {27, 0.0},
          {37, 0.0},
          {40, 10.0},
          {41, 2.0},
          {42, 50.0},
          {43, 0.0},
          {44, 0.0},
          {50, 0.0},
          {51, 0.0},
          {71, no_flags},
          {72, std::int64_t{1000}},
          {73, std::int64_t{1}},
          {74, std::int64_t{3}},
          {75, no_flags},
          {76, no_flags},
          {77, no_flags},
          {78, no_flags}};
}

class RequiredTables {
 public:
  explicit RequiredTables(TagDrawing& drawing) : drawing_(drawing) {}

  void add() {
    std::vector<TagTable> in_order;
    for (const TableRule& rule : table_rules()) {
      const auto known = std::ranges::find(drawing_.tables, rule.name, &TagTable::name);
      if (known != drawing_.tables.end()) {
        in_order.push_back(std::move(*known));
        drawing_.tables.erase(known);
      } else {
        in_order.push_back({std::string(rule.name), new_head(rule.name), {}});
      }
    }
    std::ranges::move(drawing_.tables, std::back_inserter(in_order));
    drawing_.tables = std::move(in_order);
    for (const TableRule& rule : table_rules()) {
      for (const std::string_view row : rule.rows) require(rule, std::string(row));
    }
    add_named_rows();
    point_to_styles();
  }

 private:
  TagRecord new_head(std::string_view table) {
    TagRecord head{
        "TABLE", drawing_.new_handle(), 0, {{100, "AcDbSymbolTable"}, {70, no_flags}}, {}};
    if (table == "DIMSTYLE") {
      head.tags.push_back({100, "AcDbDimStyleTable"});
      head.tags.push_back({71, no_flags});
    }
    return head;
  }

  static const TableRule& rule_of(std::string_view table) {
    return *std::ranges::find(table_rules(), table, &TableRule::name);
  }

  void require(const TableRule& rule, const std::string& name) {
    auto& names = names_[index_of(rule)];
    TagTable& table = *drawing_.table(rule.name);
    if (names.empty()) {
      for (const TagRecord& row : table.rows) names.insert(folded_name(name_of(row)));
    }
    if (name.empty() || !names.insert(folded_name(name)).second) return;
    TagRecord row{std::string(rule.name),
                  drawing_.new_handle(),
                  table.head.handle,
                  {{100, "AcDbSymbolTableRecord"},
                   {100, std::string(rule.row_class)},
                   {2, name},
                   {70, no_flags}},
                  {}};
    std::ranges::move(standard_values(rule.name), std::back_inserter(row.tags));
    table.rows.push_back(std::move(row));
  }
  static std::size_t index_of(const TableRule& rule) {
    return static_cast<std::size_t>(&rule - table_rules().data());
  }

  /// What something names though no table lists it.
  void add_named_rows() {
    const TableRule &layers = rule_of("LAYER"), &applications = rule_of("APPID");
    const auto require_named = [&](const std::vector<TagRecord>& list) {
      for (const TagRecord& record : list) {
        require(layers, text_of(record.tags, 8));
        for (std::size_t i = xdata_of(record.tags); i < record.tags.size(); ++i) {
          const auto* const name = std::get_if<std::string>(&record.tags[i].value);
          if (record.tags[i].code == 1001 && name != nullptr) require(applications, *name);
        }
      }
    };
    drawing_.each_space(require_named);
    for (const TagTable& table : std::vector<TagTable>(drawing_.tables)) require_named_in(table);
  }
  void require_named_in(const TagTable& table) {
    for (const TagRecord& row : table.rows) {
      for (std::size_t i = xdata_of(row.tags); i < row.tags.size(); ++i) {
        const auto* const name = std::get_if<std::string>(&row.tags[i].value);
        if (row.tags[i].code == 1001 && name != nullptr) require(rule_of("APPID"), *name);
      }
    }
  }

  /// The text style of dimensions that name none.
  void point_to_styles() {
    const TagRecord* const standard = drawing_.row("STYLE", "Standard");
    for (TagRecord& row : drawing_.table("DIMSTYLE")->rows) {
      if (find_tag(row.tags, 340)) continue;
      insert_tag(row.tags, xdata_of(row.tags), handle_tag(340, standard->handle));
    }
  }

  TagDrawing& drawing_;
  std::array<std::set<std::string>, 9> names_;
};

}  // namespace

void add_required_tables(TagDrawing& drawing) { RequiredTables(drawing).add(); }

}  // namespace velmar::drawing
