#include <unordered_set>

#include "drawing/checker.h"
#include "drawing/dxf/record_tags.h"
#include "drawing/named_by.h"

namespace velmar::drawing {
namespace {

using Names = std::unordered_set<std::string>;

class NameCheck {
 public:
  NameCheck(const Store& store, Faults& faults) : store_(store), faults_(faults) {
    for (const TableRow& row : store.rows) {
      if (row.table == "LTYPE") linetypes_.insert(folded_name(row.name));
      if (row.table == "STYLE") text_styles_.insert(folded_name(row.name));
      if (row.table == "DIMSTYLE") dimension_styles_.insert(folded_name(row.name));
      if (row.table == "APPID") applications_.insert(folded_name(row.name));
    }
    layers_.insert("0");  // is there without being defined
    for (const Layer& layer : store.layers) {
      const bool is_row =
          layer.record != RecordId::none && !store.at(layer.record).is(Record::erased);
      if (is_row) layers_.insert(folded_name(layer.name));
    }
    for (const Space& space : store.spaces) {
      const bool is_defined = space.block != RecordId::none || space.owner != 0;
      if (!space.erased && is_defined) blocks_.insert(folded_name(space.name));
    }
    for (const std::string_view name : {"continuous", "bylayer", "byblock"}) {
      linetypes_.insert(std::string(name));
    }
  }

  void check(RecordId id) {
    const Record& record = store_.at(id);
    const auto codes = name_codes(store_.kind_name(record.kind));
    const bool is_entity = record.space != SpaceId::none;
    if (!is_entity && record.kind != Kind::layer) return;
    const dxf::RecordTags tags(store_.bytes(id), store_.format);
    const std::size_t head = end_of_head(tags);
    for (std::size_t i = 1; i < tags.tags().size(); ++i) {
      const dxf::Tag& tag = tags.tags()[i];
      if (tag.code == 1001) check_name(id, tags, tag, applications_, "application");
      if (i >= tags.xdata() || tag.in_group) continue;
      if (is_entity && tag.code == 8 && i < head) check_name(id, tags, tag, layers_, "layer");
      if (tag.code == 6 && (i < head || !is_entity)) {
        check_name(id, tags, tag, linetypes_, "linetype");
      }
      const bool is_own = i >= head || !tags.has_markers();
      if (is_entity && codes && is_own) check_own(id, tags, tag, *codes);
    }
  }

 private:
  /// Where a record's own groups begin. Without markers they stand among the others.
  static std::size_t end_of_head(const dxf::RecordTags& record) {
    if (!record.has_markers()) return record.xdata();
    for (std::size_t i = 1; i < record.xdata(); ++i) {
      const dxf::Tag& tag = record.tags()[i];
      if (tag.code == 100 && record.text(tag) != "AcDbEntity") return i;
    }
    return record.xdata();
  }

  void check_own(RecordId id, const dxf::RecordTags& record, const dxf::Tag& tag,
                 std::span<const NameCode> codes) {
    for (const NameCode& row : codes) {
      if (row.code != tag.code) continue;
      if (row.names == Purgeable::block) check_name(id, record, tag, blocks_, "block");
      if (row.names == Purgeable::text_style) {
        check_name(id, record, tag, text_styles_, "text style");
      }
      if (row.names == Purgeable::dimension_style) {
        check_name(id, record, tag, dimension_styles_, "dimension style");
      }
    }
  }

  void check_name(RecordId id, const dxf::RecordTags& record, const dxf::Tag& tag,
                  const Names& known, std::string_view sort) {
    const std::string name = dxf::text_value(record.bytes(), tag, store_.format);
    if (name.empty() || known.contains(folded_name(name))) return;
    faults_.add_once(sort, id, tag.value,
                     std::string(sort) + " \"" + name + "\" is named but not defined");
  }

  const Store& store_;
  Faults& faults_;
  Names layers_, linetypes_, text_styles_, dimension_styles_, applications_, blocks_;
};

}  // namespace

void check_names(const Store& store, Faults& faults) {
  NameCheck check(store, faults);
  for (std::uint32_t i = 0; i < store.records.size(); ++i) {
    if (!store.records[i].is(Record::erased)) check.check(static_cast<RecordId>(i));
  }
}

}  // namespace velmar::drawing
