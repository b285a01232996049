#include "drawing/store.h"

#include <algorithm>

#include "drawing/history.h"

namespace velmar::drawing {
std::string_view Store::source_bytes(std::size_t record) const {
  const std::size_t begin = records[record].begin;
  const std::size_t end =
      record + 1 < source_count ||
              (source_count == 0 && record + 1 < records.size())  // while the source is being read
          ? records[record + 1].begin
          : records_end;
  return source.bytes().substr(begin, end - begin);
}

std::string_view Store::bytes(RecordId id) const {
  if ((at(id).flags & (Record::patched | Record::added)) != 0) {
    return patches.at(static_cast<std::uint32_t>(id));
  }
  return source_bytes(index(id));
}

std::string_view Store::kind_name(Kind kind) const {
  if (kind < Kind::others) return drawing::kind_name(kind);
  const auto other = static_cast<std::size_t>(kind) - static_cast<std::size_t>(Kind::others);
  return other < other_kinds.size() ? std::string_view(other_kinds[other]) : "?";
}

Kind Store::kind_named(std::string_view wanted) {
  constexpr std::size_t last_kind = 0xFFFF;
  constexpr auto others = static_cast<std::size_t>(Kind::others);
  if (kinds_by_name.empty()) {
    for (std::size_t kind = 0; kind < others; ++kind) {
      kinds_by_name.emplace(kind_name(static_cast<Kind>(kind)), static_cast<Kind>(kind));
    }
  }
  const std::size_t next = others + other_kinds.size();
  // A hostile file may name more than there is room for: the rest share one.
  if (next == last_kind && !kinds_by_name.contains(std::string(wanted))) {
    return static_cast<Kind>(last_kind);
  }
  const auto [known, is_new] = kinds_by_name.try_emplace(std::string(wanted), Kind(next));
  if (is_new) other_kinds.emplace_back(wanted);
  return known->second;
}

/// The record saved first at a position of the source or behind it.
RecordId Store::first_at(std::uint32_t position) const {
  for (;; ++position) {
    const auto added = added_before.find(position);
    if (added != added_before.end() && !added->second.empty()) return added->second.front();
    if (position >= source_count || !records[position].is(Record::moved)) {
      return static_cast<RecordId>(position);
    }
  }
}

RecordId Store::find(Handle handle) const {
  const auto& order = by_handle;
  if (handle == 0 || order.empty()) return RecordId::none;
  const auto handle_at = [&](std::size_t i) { return records[order[i]].handle; };
  // Who looks up one entity after the other finds each a little behind the one before.
  std::size_t low = std::min(latest_find, order.size() - 1), high = order.size();
  if (handle_at(low) > handle) {
    high = low;
    low = 0;
  }
  for (std::size_t step = 1; low + step < high; step *= 2) {
    if (handle_at(low + step) > handle) {
      high = low + step;
      break;
    }
    low += step;
  }
  while (high - low > 1) {
    const std::size_t middle = low + (high - low) / 2;
    (handle_at(middle) > handle ? high : low) = middle;
  }
  latest_find = low;
  return handle_at(low) == handle ? static_cast<RecordId>(order[low]) : RecordId::none;
}

RecordId Store::next(RecordId id) const {
  if (!at(id).is_placed()) return first_at(static_cast<std::uint32_t>(id) + 1);
  const std::uint32_t anchor = anchors.at(static_cast<std::uint32_t>(id));
  const auto& line = added_before.at(anchor);
  const auto place = std::find(line.begin(), line.end(), id) + 1;
  if (place != line.end()) return *place;
  const bool is_there = anchor >= source_count || !records[anchor].is(Record::moved);
  return is_there ? static_cast<RecordId>(anchor) : first_at(anchor + 1);
}

RecordId Store::whole(RecordId part) const {
  if (!at(part).is(Record::part)) return part;
  if (at(part).is_placed()) {
    const std::uint32_t anchor = anchors.at(static_cast<std::uint32_t>(part));
    const auto& line = added_before.at(anchor);
    for (auto place = std::find(line.begin(), line.end(), part); place != line.begin();) {
      if (!at(*--place).is(Record::part)) return *place;
    }
    part = static_cast<RecordId>(anchor - 1);  // added to an entity of the source
  }
  std::size_t i = index(part);
  while (i > 0 && (records[i].is(Record::part) || records[i].is(Record::moved))) --i;
  return static_cast<RecordId>(i);
}

void Store::remember(RecordId id) {
  if (history) history->remember(*this, id);
}

bool Store::draws_dimension(std::uint32_t record) const {
  const SpaceId space = records[record].space;
  return space != SpaceId::none && spaces[index(space)].name.starts_with("*D");
}

void Store::patch(RecordId id, std::string bytes) {
  const auto number = static_cast<std::uint32_t>(id);
  remember(id);
  Record& record = at(id);
  record.class_number = 0;
  edited();
  if (!record.is(Record::added)) {
    record.flags |= Record::patched;
    touched.insert(touched.end(), number);  // mostly in ascending order
  }
  patches[number] = std::move(bytes);
  const bool is_entity = record.space != SpaceId::none;
  const RecordId shown = record.kind == Kind::vertex ? whole(id) : id;
  remember(shown);
  if (at(shown).is(Record::remembered)) at(shown).flags |= Record::edited;
  if (is_entity && !added_since_save.contains(static_cast<std::uint32_t>(shown))) {
    modified_since_save.insert(modified_since_save.end(), static_cast<std::uint32_t>(shown));
  }
}

RecordId Store::add(RecordId before, Record record, std::string bytes) {
  const auto number = static_cast<std::uint32_t>(records.size());
  const auto id = static_cast<RecordId>(number);
  record.flags |= Record::added;
  const bool beside_added = index(before) < records.size() && at(before).is_placed();
  const std::uint32_t anchor = beside_added ? anchors.at(static_cast<std::uint32_t>(before))
                                            : static_cast<std::uint32_t>(before);
  records.push_back(record);
  patches[number] = std::move(bytes);
  anchors[number] = anchor;
  auto& line = added_before[anchor];
  if (beside_added) {
    // Most often it is one of those added last.
    line.insert(std::find(line.rbegin(), line.rend(), before).base() - 1, id);
  } else {
    line.push_back(id);
  }
  edited();
  return id;
}

Handle Store::give_handle(RecordId id) {
  gave_handles = gave_handles || has_handles;
  at(id).handle = next_handle++;
  handle_seed = next_handle;
  by_handle.push_back(static_cast<std::uint32_t>(id));
  return at(id).handle;
}

std::optional<LayerId> Store::find_layer(std::string_view wanted) const {
  const auto place = layer_names.find(layers, wanted, [&](std::size_t i) {
    const RecordId row = layers[i].record;
    return !layers[i].undone && (row == RecordId::none || !at(row).is(Record::erased));
  });
  if (!place) return std::nullopt;
  return static_cast<LayerId>(*place);
}

LayerId Store::layer_named(std::string_view wanted) {
  if (const auto found = find_layer(wanted)) return *found;
  Layer layer;
  layer.name = wanted;
  layers.push_back(std::move(layer));
  return static_cast<LayerId>(layers.size() - 1);
}

std::optional<SpaceId> Store::find_space(std::string_view wanted) const {
  const auto place =
      space_names.find(spaces, wanted, [&](std::size_t i) { return !spaces[i].erased; });
  if (!place) return std::nullopt;
  return static_cast<SpaceId>(*place);
}

std::uint64_t Store::line_of(RecordId id, std::size_t offset) const {
  const std::size_t byte = at(id).begin + offset;
  if (format.binary) return byte;
  return lines.line_at(source.bytes(), byte, format.line_end);
}

std::string Store::where(RecordId id, std::size_t offset) const {
  const Record& record = at(id);
  std::string text = name;
  if ((record.flags & (Record::patched | Record::added)) == 0) {
    text += (format.binary ? ", byte " : ", line ") + std::to_string(line_of(id, offset));
  }
  text += " (" + std::string(kind_name(record.kind));
  if (record.handle != 0) text += " #" + handle_text(record.handle);
  return text + ")";
}

}  // namespace velmar::drawing
