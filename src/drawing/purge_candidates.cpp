#include "drawing/purge_candidates.h"

#include <algorithm>

#include "drawing/block_records.h"
#include "drawing/dictionaries.h"
#include "drawing/dxf/record_reader.h"

namespace velmar::drawing {
namespace {

/// Rows that every drawing has, folded.
bool stays(Purgeable kind, std::string_view name) {
  switch (kind) {
    case Purgeable::layer:
      return name == "0" || name == "defpoints";
    case Purgeable::linetype:
      return name == "continuous" || name == "bylayer" || name == "byblock";
    case Purgeable::application:
      return name == "acad";
    case Purgeable::block:
    case Purgeable::group:
      return false;
    default:
      return name == "standard";
  }
}

/// Of an external reference: flag 16, or a name such as "plan|walls".
bool is_external(std::string_view name, std::int64_t flags) {
  constexpr std::int64_t dependent = 16;
  return (flags & dependent) != 0 || name.find('|') != name.npos;
}

}  // namespace

Candidates::Candidates(const Store& store) : store_(store), by_space_(store.spaces.size(), -1) {
  for (const Layer& layer : store.layers) {
    const bool is_row =
        layer.record != RecordId::none && !store.at(layer.record).is(Record::erased);
    if (is_row && !is_external(layer.name, layer.flags)) {
      add(layer.name, {Purgeable::layer, layer.record});
    }
  }
  add_rows("LTYPE", Purgeable::linetype);
  add_rows("STYLE", Purgeable::text_style);
  add_rows("DIMSTYLE", Purgeable::dimension_style);
  add_rows("APPID", Purgeable::application);
  add_blocks();
  add_objects("ACAD_MLINESTYLE", Purgeable::multiline_style);
  add_objects("ACAD_MLEADERSTYLE", Purgeable::leader_style);
  add_objects("ACAD_TABLESTYLE", Purgeable::table_style);
  add_objects("ACAD_GROUP", Purgeable::group);
}

void Candidates::add(const std::string& name, Candidate candidate) {
  const std::string folded = folded_name(name);
  if (stays(candidate.kind, folded)) return;
  const int number = static_cast<int>(list_.size());
  auto& names = by_name_[static_cast<std::size_t>(candidate.kind)];
  // Of two of one name nobody can tell which is meant.
  if (const auto [known, is_new] = names.try_emplace(folded, number); !is_new) {
    candidate.used = list_[static_cast<std::size_t>(known->second)].used = true;
  }
  if (candidate.record != RecordId::none)
    by_record_[static_cast<std::uint32_t>(candidate.record)] = number;
  if (candidate.space != SpaceId::none) by_space_[index(candidate.space)] = number;
  list_.push_back(candidate);
}

void Candidates::add_rows(std::string_view table, Purgeable kind) {
  for (const TableRow& row : store_.rows) {
    if (row.table != table || row.name.empty()) continue;  // no name: a file of shapes
    const dxf::RecordReader reader(store_.bytes(row.record), store_.format);
    const std::int64_t flags = reader.first_integer(70);
    constexpr std::int64_t shapes = 1;
    const bool is_shape_file = kind == Purgeable::text_style && (flags & shapes) != 0;
    if (!is_shape_file && !is_external(row.name, flags)) add(row.name, {kind, row.record});
  }
}

void Candidates::add_objects(std::string_view dictionary, Purgeable kind) {
  const RecordId holder = named_dictionary(store_, dictionary);
  if (holder == RecordId::none) return;
  for (const DictionaryEntry& entry : dictionary_entries(store_, holder)) {
    const RecordId object = store_.find(entry.object);
    if (object == RecordId::none || store_.at(object).is(Record::erased)) continue;
    add(entry.name, {kind, object});
  }
}

void Candidates::add_blocks() {
  constexpr std::int32_t external = Space::xref_flag | Space::overlay_flag | 16;
  for (std::uint32_t i = 0; i < store_.spaces.size(); ++i) {
    const Space& space = store_.spaces[i];
    const auto id = static_cast<SpaceId>(i);
    if (space.erased || space.is_layout || id == SpaceId::model) continue;
    if ((space.flags & external) != 0 || space.name.find('|') != space.name.npos) continue;
    const RecordId row = block_row(store_, id);
    add(space.name, {Purgeable::block, row != RecordId::none ? row : space.block, id});
  }
}

int Candidates::named(Purgeable kind, const std::string& folded) const {
  const auto& names = by_name_[static_cast<std::size_t>(kind)];
  const auto found = names.find(folded);
  return found == names.end() ? -1 : found->second;
}

int Candidates::of_record(RecordId record) const {
  const auto found = by_record_.find(static_cast<std::uint32_t>(record));
  return found == by_record_.end() ? -1 : found->second;
}

int Candidates::of_space(SpaceId space) const {
  return space == SpaceId::none ? -1 : by_space_[index(space)];
}

}  // namespace velmar::drawing
