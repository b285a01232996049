#pragma once

#include <deque>
#include <map>
#include <memory>
#include <set>
#include <unordered_map>

#include "drawing/drawing.h"
#include "drawing/dxf/format.h"
#include "drawing/line_index.h"
#include "drawing/name.h"
#include "drawing/name_index.h"
#include "drawing/source.h"

namespace velmar::drawing {

class History;

/// Positions in the source of the landmarks of a drawing.
struct Landmarks {
  RecordId header = RecordId::none;           // the SECTION record that holds the header variables
  RecordId end_of_entities = RecordId::none;  // the ENDSEC behind which no entity stands
  RecordId end_of_blocks = RecordId::none;    // the ENDSEC of their sections
  RecordId end_of_objects = RecordId::none;
  RecordId entities = RecordId::none;  // the SECTION record of the entities
};

/// Where a table stands: its TABLE record, its first row, its ENDTAB.
struct TableMarks {
  RecordId begin = RecordId::none, first_row = RecordId::none, end = RecordId::none;
};

/// A row of a table other than the layer table.
struct TableRow {
  std::string table;  // "LTYPE"
  std::string name;
  RecordId record = RecordId::none;
};

/// What a drawing is made of. The records of the source tile it: each goes from its `begin` to the
/// next one's.
struct Store {
  std::filesystem::path path;  // empty for one from memory
  std::string name;            // for messages
  Source source;
  dxf::Format format;
  std::size_t records_end = 0;  // end of the last record; what follows is kept
  std::vector<Record> records;  // of the source, then added ones
  std::size_t source_count = 0;
  std::vector<std::string> other_kinds;  // names of kinds from Kind::others on
  std::unordered_map<std::string, Kind> kinds_by_name;
  Landmarks landmarks;
  bool has_handles = false;
  Handle next_handle = 1;

  std::vector<Layer> layers;
  std::vector<Space> spaces;
  std::vector<Layout> layouts;
  std::vector<TableRow> rows;
  std::map<std::string, TableMarks, std::less<>> tables;
  std::vector<Warning> warnings;

  // Edits. An added or moved record stands before a record of the source (or its end, number
  // source_count).
  std::unordered_map<std::uint32_t, std::string> patches;
  std::map<std::uint32_t, std::vector<RecordId>> added_before;
  std::unordered_map<std::uint32_t, std::uint32_t> anchors;  // of added and moved records
  std::set<std::uint32_t> touched;  // source records with a patch, erased or moved
  std::vector<RecordId> unsettled;  // erased, and still named by others; see erasing.h
  std::set<std::uint32_t> added_since_save, modified_since_save, erased_since_save;
  mutable std::deque<std::string> class_names;  // Record::class_number counts them from 1
  /// Of the text styles that were asked for, by the names that texts give them.
  std::unordered_map<std::string, TextLook> looks;
  FontShelfPointer fonts = std::make_shared<FontShelf>();
  std::uint64_t edition = 0;                     // grows with every edit
  std::uint64_t content = 0, saved_content = 0;  // as edition, but an undo brings an old one back
  std::shared_ptr<History> history;              // null: none is kept
  std::shared_ptr<Journal> journal;              // of saves; null: none is kept
  std::optional<FileStamp> stamp;                // of the file at `path` as this drawing knows it
  bool any_erased = false;
  bool saved_converted = false;  // the file at `path` is no more what this was read from
  bool gave_handles = false;     // written ones: then $HANDSEED follows
  Handle handle_seed = 1;        // what it is then
  mutable std::optional<std::set<SpaceId>> shared_blocks;  // see Drawing::is_drawn_by_several
  std::uint64_t latest_drawn_block = 0;  // the number of the newest block *Dn, once one was added
  mutable NameIndex space_names, layer_names;
  mutable LineIndex lines;  // of the source

  std::vector<std::uint32_t> by_handle;  // records in the order of their handles
  mutable std::size_t latest_find = 0;   // where in it find() stood last

  Record& at(RecordId id) { return records[index(id)]; }
  const Record& at(RecordId id) const { return records[index(id)]; }
  /// The bytes of a record as they would be saved.
  std::string_view bytes(RecordId id) const;
  /// The bytes of a record of the source as they were read.
  std::string_view source_bytes(std::size_t record) const;
  std::string_view kind_name(Kind kind) const;
  Kind kind_named(std::string_view wanted);  // a new one where it is not known yet
  /// The record of that handle, erased ones included; none if there never was one.
  RecordId find(Handle handle) const;
  /// The record behind this one in the order of saving; number source_count at the end.
  RecordId next(RecordId id) const;
  std::optional<LayerId> find_layer(std::string_view wanted) const;
  LayerId layer_named(std::string_view wanted);  // listed or not
  std::optional<SpaceId> find_space(std::string_view wanted) const;
  /// The entity that a part belongs to.
  RecordId whole(RecordId part) const;
  /// "plan.dxf, line 811 (LINE #2F)"; `offset` is within the record's bytes.
  std::string where(RecordId id, std::size_t offset) const;
  std::uint64_t line_of(RecordId id, std::size_t offset) const;

  /// Told with every edit.
  void edited() { content = ++edition; }
  /// Told before the record is changed in another way than by patch(), for the history.
  void remember(RecordId id);
  /// The entity stands in the block that draws a dimension, and is told of as the dimension.
  bool draws_dimension(std::uint32_t record) const;
  /// Gives a record of the source other bytes; what it says of layer and colour is for the caller.
  void patch(RecordId id, std::string bytes);
  /// Adds a record before another one, or at the end of the records for number source_count.
  RecordId add(RecordId before, Record record, std::string bytes);
  Handle give_handle(RecordId id);

 private:
  RecordId first_at(std::uint32_t position) const;
};

}  // namespace velmar::drawing
