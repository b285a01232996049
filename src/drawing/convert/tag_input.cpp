#include "drawing/convert/tag_input.h"

#include <algorithm>

#include "drawing/dxf/chunk.h"
#include "drawing/dxf/record_tags.h"

namespace velmar::drawing {
namespace {

TagValue tag_value(const dxf::RecordTags& record, const dxf::Tag& tag) {
  const dxf::Format& format = record.format();
  const dxf::ValueKind kind = dxf::value_kind(tag.code);
  if (kind == dxf::ValueKind::real) {
    if (const auto real = dxf::real_value(record.bytes(), tag, format)) return {tag.code, *real};
  } else if (kind == dxf::ValueKind::chunk) {
    const std::string_view text = record.text(tag);
    return {tag.code, format.binary ? dxf::hexadecimal_text(text) : std::string(text)};
  } else if (kind != dxf::ValueKind::text) {
    const auto integer = dxf::integer_value(record.bytes(), tag, format);
    if (integer) return {tag.code, *integer};
  }
  return {tag.code, dxf::text_as_written(record.text(tag), format)};
}

/// Takes the owner out of a record's head.
void take_owner(TagRecord& record) {
  bool in_group = false;
  for (auto tag = record.tags.begin(); tag != record.tags.end() && tag->code < 1000; ++tag) {
    const auto* const text = std::get_if<std::string>(&tag->value);
    if (tag->code == 102) in_group = text != nullptr && text->starts_with('{');
    if (tag->code == 330 && !in_group) {
      record.owner = handle_of(*tag);
      record.tags.erase(tag);
      return;
    }
    if (tag->code == 100 && text != nullptr && *text != "AcDbEntity") return;
  }
}

class Apart {
 public:
  explicit Apart(const Store& store) : store_(store) {
    drawing_.version = store.format.version;
    drawing_.next_handle = store.next_handle;
  }

  TagDrawing all() {
    auto added = store_.added_before.begin();
    for (std::uint32_t position = 0; position <= store_.source_count; ++position) {
      if (added != store_.added_before.end() && added->first == position) {
        for (const RecordId id : (added++)->second) take(id);
      }
      const bool is_here =
          position < store_.source_count && !store_.records[position].is(Record::moved);
      if (is_here) take(static_cast<RecordId>(position));
    }
    return std::move(drawing_);
  }

 private:
  TagRecord record(RecordId id) const {
    TagRecord record{std::string(store_.kind_name(store_.at(id).kind)), store_.at(id).handle, 0,
                     read_tags(store_, id), id};
    const int code = record.is("DIMSTYLE") ? 105 : 5;
    const bool names_block = record.is("DIMSTYLE") && !store_.format.has_subclasses();
    const auto limit = static_cast<std::ptrdiff_t>(xdata_of(record.tags));
    const auto own = std::find_if(record.tags.begin(), record.tags.begin() + limit,
                                  [&](const TagValue& tag) { return tag.code == code; });
    if (own != record.tags.begin() + limit && !names_block) record.tags.erase(own);
    if (store_.format.has_subclasses()) take_owner(record);
    return record;
  }

  void take(RecordId id) {
    const Kind kind = store_.at(id).kind;
    if (kind == Kind::eof) return;
    if (kind == Kind::section) return begin_section(id);
    if (kind == Kind::endsec) return section_.clear();
    if (store_.at(id).is(Record::erased)) return;
    if (section_ == "TABLES") return take_of_table(id);
    if (section_ == "BLOCKS") return take_of_block(id);
    if (section_ == "CLASSES") drawing_.classes.push_back(record(id));
    if (section_ == "ENTITIES") drawing_.entities.push_back(record(id));
    if (section_ == "OBJECTS") drawing_.objects.push_back(record(id));
    if (section_ == "other") drawing_.others.back().records.push_back(record(id));
  }

  void begin_section(RecordId id) {
    Tags tags = read_tags(store_, id);
    section_ = text_of(tags, 2);
    if (!tags.empty()) tags.erase(tags.begin());
    if (section_ == "HEADER") {
      for (TagValue& tag : tags) {
        if (tag.code == 9) drawing_.header.emplace_back();
        if (!drawing_.header.empty()) drawing_.header.back().push_back(std::move(tag));
      }
    } else if (section_ != "CLASSES" && section_ != "TABLES" && section_ != "BLOCKS" &&
               section_ != "ENTITIES" && section_ != "OBJECTS") {
      drawing_.others.push_back({std::move(tags), section_, {}});
      section_ = "other";
    }
  }

  void take_of_table(RecordId id) {
    const Kind kind = store_.at(id).kind;
    if (kind == Kind::endtab) return;
    TagRecord taken = record(id);
    if (kind == Kind::table) {
      const std::string name = name_of(taken);
      std::erase_if(taken.tags, [](const TagValue& tag) { return tag.code == 2; });
      drawing_.tables.push_back({name, std::move(taken), {}});
    } else if (!drawing_.tables.empty()) {
      drawing_.tables.back().rows.push_back(std::move(taken));
    }
  }

  void take_of_block(RecordId id) {
    const Kind kind = store_.at(id).kind;
    if (kind == Kind::block) {
      drawing_.blocks.push_back({record(id), {}, {"ENDBLK", 0, 0, {}, RecordId::none}});
    } else if (kind == Kind::endblk) {
      if (!drawing_.blocks.empty()) drawing_.blocks.back().end = record(id);
    } else if (!drawing_.blocks.empty()) {
      drawing_.blocks.back().entities.push_back(record(id));
    }
  }

  const Store& store_;
  TagDrawing drawing_;
  std::string section_;
};

}  // namespace

Tags read_tags(const Store& store, RecordId id) {
  const dxf::RecordTags record(store.bytes(id), store.format);
  if (store.at(id).is(Record::damaged) || record.damaged()) {
    throw Error(store.where(id, 0) +
                ": a line of it is no DXF, so it cannot be converted; 'velmar info --check' tells "
                "which");
  }
  Tags tags;
  tags.reserve(record.tags().size());
  for (std::size_t i = 1; i < record.tags().size(); ++i) {
    tags.push_back(tag_value(record, record.tags()[i]));
  }
  return tags;
}

TagDrawing take_apart(const Store& store) { return Apart(store).all(); }

}  // namespace velmar::drawing
