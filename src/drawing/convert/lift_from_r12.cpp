#include "drawing/convert/lift_from_r12.h"

#include <algorithm>
#include <array>
#include <map>

#include "drawing/convert/r12_entities.h"
#include "drawing/convert/r12_header.h"
#include "drawing/convert/r12_kinds.h"
#include "drawing/convert/r12_viewport.h"
#include "drawing/convert/release.h"
#include "drawing/name.h"

namespace velmar::drawing {
namespace {

/// Each code goes to the first part that has it and is not behind the last.
class Division {
 public:
  Division(TagRecord& record, std::span<const R12Part> parts, std::string_view base)
      : record_(record), parts_(parts), base_(base) {}

  /// Returns whether a tag found no place.
  bool divide() {
    std::vector<Tags> divided(parts_.size());
    Tags head, xdata;
    bool any_left = false;
    for (TagValue& tag : record_.tags) {
      if (tag.code >= 1000) {
        xdata.push_back(std::move(tag));
      } else if (base_ == "AcDbEntity" && is_r12_common(tag.code)) {
        head.push_back(std::move(tag));
      } else if (const std::size_t part = part_of(tag.code); part < parts_.size()) {
        divided[part].push_back(std::move(tag));
      } else {
        any_left = true;
      }
    }
    record_.tags.clear();
    record_.tags.push_back({100, std::string(base_)});
    append(head);
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      record_.tags.push_back({100, std::string(parts_[i].marker)});
      append(divided[i]);
    }
    append(xdata);
    return any_left;
  }

 private:
  std::size_t part_of(int code) const {
    for (std::size_t i = 0; i < parts_.size(); ++i) {
      if (std::ranges::find(parts_[i].codes, code) != parts_[i].codes.end()) return i;
    }
    return parts_.size();
  }
  void append(Tags& tags) { std::ranges::move(tags, std::back_inserter(record_.tags)); }

  TagRecord& record_;
  std::span<const R12Part> parts_;
  std::string_view base_;
};

class Lifting {
 public:
  Lifting(TagDrawing& drawing, LossList& losses) : drawing_(drawing), losses_(losses) {}

  void run() {
    std::erase_if(drawing_.header, [](const Tags& variable) {
      const auto* const name = std::get_if<std::string>(&variable.front().value);
      return name == nullptr || is_r12_variable_only(*name);
    });
    drawing_.each([&](TagRecord& record) {
      if (record.handle == 0) record.handle = drawing_.new_handle();
    });
    lift_tables();
    for (TagBlock& block : drawing_.blocks) lift_block(block);
    lift_entities(drawing_.entities);
  }

 private:
  void lift_tables() {
    if (TagTable* const layers = drawing_.table("LAYER")) {
      for (const TagRecord& row : layers->rows) {
        layer_handles_[folded_name(name_of(row))] = row.handle;
      }
    }
    for (TagTable& table : drawing_.tables) {
      std::erase_if(table.head.tags, [](const TagValue& tag) { return tag.code != 70; });
      table.head.tags.insert(table.head.tags.begin(), {100, "AcDbSymbolTable"});
      for (TagRecord& row : table.rows) {
        row.owner = table.head.handle;
        divide(row, "AcDbSymbolTableRecord");
        if (row.is("LTYPE")) complete_linetype(row);
        if (row.is("LAYER")) row.tags.push_back({370, std::int64_t{-3}});
        if (row.is("VPORT") && same_name(name_of(row), "*Active")) {
          std::ranges::find(row.tags, 2, &TagValue::code)->value = "*Active";
        }
      }
    }
  }

  /// Since then each dash says that it has no shape.
  static void complete_linetype(TagRecord& row) {
    Tags tags;
    for (TagValue& tag : row.tags) {
      const bool is_dash = tag.code == 49;
      tags.push_back(std::move(tag));
      if (is_dash) tags.push_back({74, std::int64_t{0}});
    }
    row.tags = std::move(tags);
  }

  void lift_block(TagBlock& block) {
    for (TagValue& tag : block.begin.tags) {
      auto* const name = std::get_if<std::string>(&tag.value);
      if (name == nullptr || (tag.code != 2 && tag.code != 3)) continue;
      if (same_name(*name, "$MODEL_SPACE")) *name = "*Model_Space";
      if (same_name(*name, "$PAPER_SPACE")) *name = "*Paper_Space";
    }
    for (TagRecord* const end : {&block.begin, &block.end}) {
      if (!find_tag(end->tags, 8)) end->tags.insert(end->tags.begin(), {8, "0"});
      divide(*end, "AcDbEntity");
    }
    lift_entities(block.entities);
  }

  void lift_entities(std::vector<TagRecord>& list) {
    std::int64_t polyline_flags = 0;
    for (TagRecord& record : list) {
      if (record.is("VIEWPORT")) {
        lift_viewport(record, layer_handles_);
        continue;
      }
      if (record.is("POLYLINE")) polyline_flags = integer_of(record.tags, 70);
      if (record.is("DIMENSION")) complete_dimension(record);
      divide(record, "AcDbEntity", polyline_flags);
    }
  }

  /// Since then a flag says that the block is the dimension's own.
  static void complete_dimension(TagRecord& record) {
    for (TagValue& tag : record.tags) {
      auto* const flags = std::get_if<std::int64_t>(&tag.value);
      if (tag.code == 70 && flags != nullptr) *flags |= 32;
    }
  }

  void divide(TagRecord& record, std::string_view base, std::int64_t polyline_flags = 0) {
    const bool is_array = integer_of(record.tags, 70) > 1 || integer_of(record.tags, 71) > 1;
    const R12Flags flags{integer_of(record.tags, 70), polyline_flags,
                         record.is("INSERT") && is_array};
    const auto parts = r12_parts(record.kind, flags);
    const bool is_known = !parts.empty() || record.is("SEQEND");
    const bool any_left = Division(record, parts, base).divide();
    if (is_known && any_left) {
      losses_.note("values of " + record.kind + " that R12 does not define", "dropped",
                   record.handle);
    } else if (any_left) {
      losses_.add(record.kind, "its values are dropped: R12 does not have the kind", record.handle);
    }
  }

  TagDrawing& drawing_;
  LossList& losses_;
  std::map<std::string, Handle> layer_handles_;
};

}  // namespace

void lift_from_r12(TagDrawing& drawing, LossList& losses) {
  Lifting(drawing, losses).run();
  drawing.version = r2000;
}

}  // namespace velmar::drawing
