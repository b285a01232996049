#include "drawing/convert/lower_to_r12.h"

#include <algorithm>
#include <array>
#include <map>

#include "drawing/convert/newer_values.h"
#include "drawing/convert/r12_entities.h"
#include "drawing/convert/r12_header.h"
#include "drawing/convert/r12_kinds.h"
#include "drawing/convert/r12_names.h"
#include "drawing/convert/r12_viewport.h"
#include "drawing/convert/release.h"
#include "drawing/name.h"

namespace velmar::drawing {
namespace {

/// Objects that a program has for itself, or that only say what R12 has no choice about.
constexpr auto furniture = std::to_array<std::string_view>(
    {"ACDBDICTIONARYWDFLT", "ACDBPLACEHOLDER", "ACDBPERSSUBENTMANAGER",
     "ACDBASSOCPERSSUBENTMANAGER", "ACDBDETAILVIEWSTYLE", "ACDBSECTIONVIEWSTYLE", "CELLSTYLEMAP",
     "DICTIONARY", "DICTIONARYVAR", "LAYOUT", "MATERIAL", "MLEADERSTYLE", "MLINESTYLE",
     "PLOTSETTINGS", "RASTERVARIABLES", "SCALE", "TABLESTYLE", "VISUALSTYLE", "WIPEOUTVARIABLES"});

class Lowering {
 public:
  Lowering(TagDrawing& written, const Drawing& drawing, LossList& losses)
      : written_(written), drawing_(drawing), losses_(losses), entities_(drawing, written, losses) {
    if (TagTable* const blocks = written.table("BLOCK_RECORD")) {
      for (const TagRecord& row : blocks->rows) block_names_[row.handle] = name_of(row);
    }
    for (const Layer& layer : drawing.layers()) {
      if (layer.record != RecordId::none) {
        layer_names_[drawing.record(layer.record).handle] = layer.name;
      }
    }
  }

  void run() {
    drop_objects();
    drop_sheets();
    lower_header();
    lower_tables();
    for (TagBlock& block : written_.blocks) lower_block(block);
    lower_entities(written_.entities);
    for (TagBlock& block : entities_.take_blocks()) written_.blocks.push_back(std::move(block));
    fit_names_to_r12(written_, losses_);
    for (TagTable& table : written_.tables) {
      for (TagRecord& row : table.rows) row.handle = 0;
    }
    for (TagBlock& block : written_.blocks) block.begin.handle = 0;
  }

 private:
  void drop_objects() {
    for (const TagRecord& object : written_.objects) {
      if (std::ranges::find(furniture, object.kind) != furniture.end()) continue;
      losses_.add(object.kind, "dropped", object.handle);
    }
    written_.objects.clear();
    written_.classes.clear();
    written_.others.clear();
  }

  /// R12 has one sheet: the active one.
  void drop_sheets() {
    for (const Layout& layout : drawing_.layouts()) {
      if (layout.space == SpaceId::none || layout.space == SpaceId::model) continue;
      const std::string& block = drawing_.spaces()[index(layout.space)].name;
      if (same_name(block, "*Paper_Space") || drawing_.entity_count(layout.space) == 0) continue;
      losses_.add("sheets beyond the active one", "dropped",
                  layout.record == RecordId::none ? 0 : drawing_.record(layout.record).handle);
    }
    std::erase_if(written_.blocks, [&](const TagBlock& block) {
      const std::string name = name_of(block.begin);
      const auto space = drawing_.find_space(name);
      return space && drawing_.spaces()[index(*space)].is_layout &&
             !same_name(name, "*Model_Space") && !same_name(name, "*Paper_Space");
    });
  }

  void lower_header() {
    std::erase_if(written_.header, [](const Tags& variable) {
      const auto* const name = std::get_if<std::string>(&variable.front().value);
      return name == nullptr || !is_r12_variable(*name);
    });
    written_.set_variable("$HANDLING", {70, std::int64_t{1}});
  }

  void lower_tables() {
    std::erase_if(written_.tables,
                  [](const TagTable& table) { return r12_parts(table.name).empty(); });
    for (TagTable& table : written_.tables) {
      for (TagRecord& row : table.rows) lower_row(row);
      if (table.name == "LTYPE") {
        std::erase_if(table.rows, [](const TagRecord& row) {
          return same_name(name_of(row), "ByLayer") || same_name(name_of(row), "ByBlock");
        });
      }
      table.head = {"TABLE", 0, 0, {{70, static_cast<std::int64_t>(table.rows.size())}}, {}};
    }
  }

  void lower_row(TagRecord& row) {
    if (row.is("DIMSTYLE")) name_arrows(row);
    if (row.is("LTYPE") && std::ranges::any_of(row.tags, [](const TagValue& tag) {
          const auto* const shape = std::get_if<std::int64_t>(&tag.value);
          return tag.code == 74 && shape != nullptr && *shape != 0;
        })) {
      losses_.add("linetypes with shapes or texts", "become dashes", row.handle);
    }
    if (row.is("LAYER")) {
      if (find_tag(row.tags, 420)) losses_.add("true colours", "nearest index", row.handle);
      name_nearest_index(row);
      if (integer_of(row.tags, 370, -3) >= 0) losses_.add("lineweights", "dropped", row.handle);
      if (integer_of(row.tags, 290, 1) == 0) {
        losses_.add("layers that are not plotted", "are plotted", row.handle);
      }
    }
    keep_r12_tags(row, false);
    row.owner = 0;
  }

  /// R12 knows the blocks of arrowheads by their names.
  void name_arrows(TagRecord& row) {
    constexpr std::array<std::pair<int, int>, 3> codes{{{342, 5}, {343, 6}, {344, 7}}};
    for (TagValue& tag : row.tags) {
      for (const auto& [code, named] : codes) {
        if (tag.code != code) continue;
        const auto found = block_names_.find(handle_of(tag));
        tag = {named, found == block_names_.end() ? std::string() : found->second};
      }
    }
  }

  void lower_block(TagBlock& block) {
    keep_r12_tags(block.begin, true);
    keep_r12_tags(block.end, true);
    block.begin.owner = block.end.owner = 0;
    for (TagValue& tag : block.begin.tags) {
      auto* const name = std::get_if<std::string>(&tag.value);
      if (name == nullptr || (tag.code != 2 && tag.code != 3)) continue;
      if (same_name(*name, "*Model_Space")) *name = "$MODEL_SPACE";
      if (same_name(*name, "*Paper_Space")) *name = "$PAPER_SPACE";
    }
    lower_entities(block.entities);
  }

  void lower_entities(std::vector<TagRecord>& list) {
    std::vector<TagRecord> lowered;
    lowered.reserve(list.size());
    bool whole_is_gone = false;
    for (TagRecord& record : list) {
      const bool is_part = record.is("VERTEX") || record.is("ATTRIB") || record.is("SEQEND");
      if (is_part && whole_is_gone) continue;
      if (!is_part) whole_is_gone = !lower_entity(record, lowered);
      if (is_part) keep_entity(record, lowered);
    }
    list = std::move(lowered);
  }

  /// False where it is not there any more as what it was.
  bool lower_entity(TagRecord& record, std::vector<TagRecord>& lowered) {
    if (integer_of(record.tags, 60) == 1) {
      losses_.add("hidden entities", "dropped", record.handle);
      return false;
    }
    count_looks(record);
    name_nearest_index(record);
    if (is_r12_kind(record.kind)) {
      keep_entity(record, lowered);
      return true;
    }
    for (TagRecord& made : entities_.instead_of(record)) keep_entity(made, lowered);
    return false;
  }

  void keep_entity(TagRecord& record, std::vector<TagRecord>& lowered) {
    if (record.is("VIEWPORT")) {
      lower_viewport(record, layer_names_);
    } else {
      keep_r12_tags(record, true);
    }
    record.owner = 0;
    lowered.push_back(std::move(record));
  }

  void count_looks(const TagRecord& record) {
    if (find_tag(record.tags, 420)) losses_.add("true colours", "nearest index", record.handle);
    if (const TagValue* const tag = find_tag(record.tags, 440); tag && is_transparent(*tag)) {
      losses_.add("transparencies", "dropped", record.handle);
    }
    if (integer_of(record.tags, 370, -1) >= 0) losses_.add("lineweights", "dropped", record.handle);
    if (real_of(record.tags, 48, 1) != 1) {
      losses_.add("linetype scales of entities", "dropped", record.handle);
    }
    const bool has_dictionary = std::ranges::any_of(record.tags, [](const TagValue& tag) {
      const auto* const text = std::get_if<std::string>(&tag.value);
      return tag.code == 102 && text != nullptr && *text == "{ACAD_XDICTIONARY";
    });
    if (has_dictionary) losses_.add("extension dictionaries", "dropped", record.handle);
  }

  /// Takes out what R12 does not have: subclass markers, groups in braces, newer codes.
  static void keep_r12_tags(TagRecord& record, bool is_entity) {
    Tags kept;
    bool in_group = false, is_over = false;
    for (TagValue& tag : record.tags) {
      const auto* const text = std::get_if<std::string>(&tag.value);
      if (tag.code == 102) in_group = text != nullptr && text->starts_with('{');
      if (tag.code == 101) is_over = true;  // an object embedded in newer ones
      const bool is_xdata = tag.code >= 1000;
      if (!is_xdata && (in_group || is_over || tag.code == 102)) continue;
      const bool is_common = is_entity && is_r12_common(tag.code);
      if (is_xdata || is_common || is_r12_code(record.kind, tag.code)) {
        kept.push_back(std::move(tag));
      }
    }
    if (record.is("DIMENSION")) {
      for (TagValue& tag : kept) {
        // That its block is shown by it alone.
        if (tag.code == 70) tag.value = std::get<std::int64_t>(tag.value) & ~std::int64_t{32};
      }
    }
    record.tags = std::move(kept);
  }

  TagDrawing& written_;
  const Drawing& drawing_;
  LossList& losses_;
  R12Entities entities_;
  std::map<Handle, std::string> block_names_, layer_names_;
};

}  // namespace

void lower_to_r12(TagDrawing& written, const Drawing& drawing, LossList& losses) {
  Lowering(written, drawing, losses).run();
  written.version = r12;
}

}  // namespace velmar::drawing
