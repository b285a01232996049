#include "drawing/dxf/structure.h"

#include <algorithm>

#include "drawing/dxf/damage.h"
#include "drawing/dxf/record_reader.h"
#include "drawing/dxf/tag.h"
#include "drawing/handle_index.h"

namespace velmar::drawing::dxf {
namespace {

constexpr std::size_t most_warnings = 100;
constexpr std::string_view block_reference =
    "AcDbBlockReference";  // the class that most walks meet

bool is_model_space(std::string_view name) {
  return same_name(name, "*Model_Space") || same_name(name, "$MODEL_SPACE");
}
bool is_paper_space(std::string_view name) {
  return same_name(name.substr(0, 12), "*Paper_Space") || same_name(name, "$PAPER_SPACE");
}

}  // namespace

Structure::Structure(Store& store) : store_(store) {
  store_.class_names.emplace_back(block_reference);
  Space& model = store_.spaces.emplace_back();
  model.name = "*Model_Space";
  model.is_layout = true;
}

void Structure::warn(std::size_t offset, std::string text) {
  if (store_.warnings.size() >= most_warnings) {
    ++silent_warnings_;
    return;
  }
  std::uint64_t line = offset;
  if (!store_.format.binary) {
    if (offset < counted_to_) counted_to_ = 0, counted_line_ = 1;
    const std::string_view passed = store_.source.bytes().substr(counted_to_, offset - counted_to_);
    counted_line_ += static_cast<std::uint64_t>(
        std::count(passed.begin(), passed.end(), store_.format.line_end));
    counted_to_ = offset;
    line = counted_line_;
  }
  const Handle handle = current_ == RecordId::none ? 0 : store_.at(current_).handle;
  store_.warnings.push_back({line, handle, std::move(text)});
}

std::optional<Kind> Structure::kind_of(std::string_view name) {
  return kinds_.get(name, [this](std::string_view wanted) {
    return plausible_name(wanted) ? std::optional(store_.kind_named(wanted)) : std::nullopt;
  });
}

/// Room for all records, as far as those that were read tell their number.
void Structure::make_room(std::size_t offset) {
  constexpr std::size_t enough_to_tell = 1024;
  auto& records = store_.records;
  if (records.size() != enough_to_tell) return;
  const std::size_t per_record = std::max<std::size_t>(1, offset / enough_to_tell);
  records.reserve(store_.source.bytes().size() / per_record * 9 / 8);
}

bool Structure::begin(std::size_t offset, const Head& head) {
  const std::optional<Kind> kind = kind_of(head.kind);
  if (!kind) return false;
  make_room(offset);
  kind_ = *kind;
  current_ = static_cast<RecordId>(store_.records.size());
  Record& record = store_.records.emplace_back();
  record.begin = offset;
  record.kind = kind_;
  // What looks like the handle of a section is the value of a header variable.
  if (kind_ != Kind::section) record.handle = parse_handle(head.handle);
  const bool in_drawing_section = section_ == Section::entities || block_ != SpaceId::none;
  if (in_drawing_section && kind_ > Kind::block_record) {
    begin_entity(record, head);
  }
  return true;
}

void Structure::begin_entity(Record& record, const Head& head) {
  record.layer = layers_.get(head.layer, [this](std::string_view raw) {
    const std::string name = decode_text(raw, store_.format);
    return store_.layer_named(name.empty() ? "0" : name);
  });
  record.color = static_cast<std::int16_t>(std::clamp(head.color, -32768, 32767));
  const bool is_part = kind_ == Kind::vertex || kind_ == Kind::attrib || kind_ == Kind::seqend;
  if (is_part && whole_ != RecordId::none) {
    record.flags |= Record::part;
    record.space = store_.at(whole_).space;
    if (kind_ == Kind::seqend) whole_ = RecordId::none;
    return;
  }
  if (is_part)
    return warn(record.begin, std::string(head.kind) + " without an entity it belongs to");
  whole_ = kind_ == Kind::polyline || kind_ == Kind::insert ? current_ : RecordId::none;
  if (kind_ == Kind::insert && head.marker == block_reference) record.class_number = 1;
  record.space = block_ != SpaceId::none ? block_ : space_by_owner(head.owner, head.in_paper_space);
  store_.spaces[index(record.space)].entities.push_back(current_);
}

SpaceId Structure::space_by_owner(std::string_view owner, bool in_paper_space) {
  if (owner.empty()) return in_paper_space ? paper_space() : SpaceId::model;
  const SpaceId space = owners_.get(owner, [this](std::string_view raw) {
    const auto found = space_of_owner_.find(parse_handle(raw));
    return found == space_of_owner_.end() ? SpaceId::none : found->second;
  });
  if (space != SpaceId::none && store_.spaces[index(space)].is_layout) return space;
  unresolved_.push_back({current_, parse_handle(owner), in_paper_space});
  return in_paper_space ? paper_space() : SpaceId::model;
}

SpaceId Structure::make_space(std::string name) {
  if (is_model_space(name)) return SpaceId::model;
  Space& space = store_.spaces.emplace_back();
  space.is_layout = is_paper_space(name);
  space.name = std::move(name);
  return static_cast<SpaceId>(store_.spaces.size() - 1);
}

SpaceId Structure::paper_space() {
  for (const std::string_view name : {"*Paper_Space", "$PAPER_SPACE"}) {
    if (const auto found = store_.find_space(name)) return *found;
  }
  return make_space("*Paper_Space");
}

void Structure::end() {
  if (kind_ == Kind::section) return end_section_start();
  if (kind_ == Kind::endsec) {
    if (section_ == Section::entities) store_.landmarks.end_of_entities = current_;
    if (section_ == Section::blocks) store_.landmarks.end_of_blocks = current_;
    if (section_ == Section::objects) store_.landmarks.end_of_objects = current_;
    section_ = Section::none;
    block_ = SpaceId::none;
    whole_ = RecordId::none;
    return;
  }
  switch (section_) {
    case Section::tables:
      return end_table_row();
    case Section::blocks:
      if (kind_ == Kind::block) end_block();
      if (kind_ == Kind::endblk && block_ != SpaceId::none) {
        store_.spaces[index(block_)].endblk = current_;
        block_ = SpaceId::none;
        whole_ = RecordId::none;
      }
      return;
    case Section::objects:
      if (kind_ == Kind::layout) end_layout();
      return;
    default:
      return;
  }
}

void Structure::end_section_start() {
  const RecordReader reader(store_.bytes(current_), store_.format);
  const std::string name = reader.first_text(2);
  if (section_ != Section::none)
    warn(store_.at(current_).begin, "the section before " + name + " has no ENDSEC");
  if (section_ == Section::entities) store_.landmarks.end_of_entities = current_;
  has_section_ = true;
  block_ = SpaceId::none;
  whole_ = RecordId::none;
  section_ = name == "HEADER"     ? Section::header
             : name == "TABLES"   ? Section::tables
             : name == "BLOCKS"   ? Section::blocks
             : name == "ENTITIES" ? Section::entities
             : name == "OBJECTS"  ? Section::objects
                                  : Section::other;
  if (section_ == Section::entities) store_.landmarks.entities = current_;
  if (section_ == Section::header && store_.landmarks.header == RecordId::none) read_header();
}

void Structure::read_header() {
  store_.landmarks.header = current_;
  Format& format = store_.format;
  const RecordReader reader(store_.bytes(current_), format);
  if (const std::string version = reader.variable("$ACADVER"); !version.empty())
    format.version = version;
  format.code_page_name = reader.variable("$DWGCODEPAGE");
  format.code_page =
      format.version >= "AC1021" ? CodePage::utf8() : CodePage::named(format.code_page_name);
  if (!format.code_page.known()) {
    warn(store_.at(current_).begin,
         "code page \"" + format.code_page_name + "\" is not known; texts are read as ANSI_1252");
  }
  store_.has_handles = format.has_subclasses() || reader.variable("$HANDLING").ends_with('1');
  store_.next_handle = std::max<Handle>(1, parse_handle(reader.variable("$HANDSEED")));
}

void Structure::end_table_row() {
  const RecordReader reader(store_.bytes(current_), store_.format);
  if (kind_ == Kind::table) {
    table_ = reader.first_text(2);
    store_.tables[table_].begin = current_;
    return;
  }
  TableMarks& marks = store_.tables[table_];
  if (kind_ == Kind::endtab) {
    marks.end = current_;
    table_.clear();
    return;
  }
  if (marks.first_row == RecordId::none) marks.first_row = current_;
  if (kind_ == Kind::layer) return end_layer();
  if (kind_ == Kind::block_record) return end_block_record();
  store_.rows.push_back({table_, reader.first_text(2), current_});
}

void Structure::end_layer() {
  LayerRow row;
  RecordReader(store_.bytes(current_), store_.format).read(row);
  Layer& layer = store_.layers[index(store_.layer_named(row.name))];
  if (layer.record != RecordId::none) {
    return warn(store_.at(current_).begin, "layer \"" + row.name + "\" stands twice in its table");
  }
  static_cast<LayerRow&>(layer) = row;
  layer.record = current_;
}

void Structure::end_block_record() {
  const RecordReader reader(store_.bytes(current_), store_.format);
  const std::string name = reader.first_text(2);
  const Handle handle = store_.at(current_).handle;
  const auto known = store_.find_space(name);
  const SpaceId space = known ? *known : make_space(name);
  if (store_.spaces[index(space)].owner == 0) store_.spaces[index(space)].owner = handle;
  if (handle != 0) space_of_owner_.emplace(handle, space);
}

void Structure::end_block() {
  const RecordReader reader(store_.bytes(current_), store_.format);
  const std::string name = reader.first_text(2);
  if (block_ != SpaceId::none) {
    warn(store_.at(current_).begin,
         "block \"" + store_.spaces[index(block_)].name + "\" has no ENDBLK");
  }
  auto found = store_.find_space(name);
  if (is_model_space(name)) found = SpaceId::model;
  if (found && store_.spaces[index(*found)].block != RecordId::none) {
    warn(store_.at(current_).begin, "block \"" + name + "\" is defined twice");
    found.reset();
  }
  block_ = found ? *found : make_space(name);
  Space& space = store_.spaces[index(block_)];
  space.block = current_;
  space.flags = static_cast<std::int32_t>(reader.first_integer(70));
  space.base = reader.first_point(10);
  space.path = reader.first_text(1);
}

void Structure::end_layout() {
  const RecordReader reader(store_.bytes(current_), store_.format);
  const LayoutFields fields = reader.layout();
  layouts_.push_back(
      {{fields.name, fields.tab, SpaceId::none, current_}, parse_handle(fields.block_record)});
}

void Structure::finish() {
  if (kind_ != Kind::eof) warn(store_.records_end, "the file ends without EOF");
  if (section_ == Section::entities) {
    const auto end = static_cast<std::uint32_t>(store_.records.size());
    store_.landmarks.end_of_entities = static_cast<RecordId>(kind_ == Kind::eof ? end - 1 : end);
  }
  current_ = RecordId::none;
  place_unresolved();
  finish_layouts();
  finish_handles();
  if (silent_warnings_ > 0) {
    store_.warnings.push_back({0, 0, std::to_string(silent_warnings_) + " more warnings"});
  }
}

void Structure::place_unresolved() {
  std::size_t lost = 0;
  std::vector<bool> grown(store_.spaces.size());
  std::vector<bool> shrunk(store_.spaces.size());
  for (const Unresolved& entry : unresolved_) {
    const auto found = space_of_owner_.find(entry.owner);
    Record& record = store_.at(entry.entity);
    if (found == space_of_owner_.end() || !store_.spaces[index(found->second)].is_layout) {
      ++lost;
    } else if (record.space != found->second) {
      shrunk[index(record.space)] = true;
      grown[index(found->second)] = true;
      record.space = found->second;
      store_.spaces[index(found->second)].entities.push_back(entry.entity);
    }
  }
  for (std::size_t i = 0; i < store_.spaces.size(); ++i) {
    auto& entities = store_.spaces[i].entities;
    if (shrunk[i]) {
      std::erase_if(entities, [&](RecordId id) { return index(store_.at(id).space) != i; });
    }
    if (grown[i]) std::sort(entities.begin(), entities.end());
  }
  if (lost > 0) {
    warn(0, std::to_string(lost) +
                " entities name an owner that is no layout; they were placed by their space flag");
  }
}

void Structure::finish_layouts() {
  store_.layouts.push_back({"Model", 0, SpaceId::model, RecordId::none});
  for (NamedLayout& named : layouts_) {
    const auto found = space_of_owner_.find(named.block_record);
    if (found != space_of_owner_.end()) {
      named.layout.space = found->second;
      store_.spaces[index(found->second)].is_layout = true;
    }
    if (named.layout.space == SpaceId::model) {
      store_.layouts.front() = named.layout;
      continue;
    }
    if (named.layout.space == SpaceId::none) {
      current_ = named.layout.record;
      warn(store_.at(current_).begin,
           "layout \"" + named.layout.name + "\" names a block record that does not exist");
    }
    store_.layouts.push_back(named.layout);
  }
  current_ = RecordId::none;
  const bool has_paper = !store_.format.has_subclasses() || store_.find_space("*Paper_Space");
  if (layouts_.empty() && has_paper) {  // before releases that have layouts there was one sheet
    store_.layouts.push_back({"Layout1", 1, paper_space(), RecordId::none});
  }
  std::stable_sort(store_.layouts.begin() + 1, store_.layouts.end(),
                   [](const Layout& a, const Layout& b) { return a.tab < b.tab; });
}

void Structure::finish_handles() {
  HandleIndex handles = index_handles(store_.records);
  store_.by_handle = std::move(handles.order);
  if (!store_.by_handle.empty()) {
    store_.has_handles = true;  // whatever the header says: a copy must not have the original's
    store_.next_handle =
        std::max(store_.next_handle, store_.records[store_.by_handle.back()].handle + 1);
  }
  for (const std::uint32_t twice : handles.duplicates) {
    current_ = static_cast<RecordId>(twice);
    warn(store_.at(current_).begin,
         "another record has the same handle; this one is given a new one");
    store_.at(current_).handle = 0;
  }
  std::size_t missing = 0;
  for (std::uint32_t i = 0; i < store_.records.size(); ++i) {
    Record& record = store_.records[i];
    const bool is_entity = record.space != SpaceId::none || record.is(Record::part);
    if (record.handle != 0 || !is_entity) continue;
    record.handle = store_.next_handle++;
    record.flags |= Record::handle_is_ours;
    store_.by_handle.push_back(i);
    ++missing;
  }
  current_ = RecordId::none;
  missing -= std::min(missing, handles.duplicates.size());
  if (missing > 0 && store_.format.has_subclasses()) {
    warn(0, std::to_string(missing) + " entities have no handle; they were given new ones");
  }
}

}  // namespace velmar::drawing::dxf
