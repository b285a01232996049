#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/convert/conversion.h"
#include "drawing/dimension/variables.h"
#include "drawing/entities/kept_dimension.h"
#include "drawing/entities/layer_row.h"
#include "drawing/entities/linetype_row.h"
#include "drawing/entities/text_style.h"
#include "drawing/entities/view.h"
#include "drawing/entity.h"
#include "drawing/geometry/box.h"
#include "drawing/header_variables.h"
#include "drawing/record.h"
#include "drawing/tag_value.h"

namespace velmar::drawing {

/// A layer of the table, or one that entities name though the table does not list it (then `record`
/// is none).
struct Layer : LayerRow {
  RecordId record = RecordId::none;
  bool undone = false;  // of a step that was taken back: it is not there
};

/// Where entities are drawn: model space, the sheet of a layout, or a block definition.
struct Space {
  static constexpr std::int32_t xref_flag = 4, overlay_flag = 8;

  std::string name;                 // "*Model_Space", "DOOR"
  Handle owner = 0;                 // handle of its block record: what its entities name as owner
  RecordId block = RecordId::none;  // its BLOCK record
  RecordId endblk = RecordId::none;
  std::int32_t flags = 0;  // of the BLOCK record
  Point base;
  std::string path;  // of an external reference
  bool is_layout = false;
  bool erased = false;             // nothing of it is left but its number
  std::vector<RecordId> entities;  // in drawing order, erased ones included: see Drawing::entities

  bool is_xref() const { return (flags & (xref_flag | overlay_flag)) != 0; }
};

struct Layout {
  std::string name;
  std::int32_t tab = 0;
  SpaceId space = SpaceId::none;  // none where the layout names a block record that does not exist
  RecordId record = RecordId::none;
};

/// An object under a name in a dictionary.
struct DictionaryEntry {
  std::string name;
  Handle object = 0;
};

/// What differs from the file as it was read or last saved.
struct Changes {
  std::vector<Handle> added, modified, erased;  // in the order of the drawing
  bool empty() const { return added.empty() && modified.empty() && erased.empty(); }
};

class Journal;
struct Store;  // what a drawing is made of, see store.h

/// A DXF drawing, text or binary, R12 to the newest. It keeps the bytes it was read from: saving
/// writes every record that nobody edited from those bytes. Functions fail with Error. One thread
/// at a time.
class Drawing {
 public:
  /// Maps the file. Fails where it cannot be read or is no DXF; what is merely odd becomes a
  /// warning.
  static Drawing open(const std::filesystem::path& path);
  /// The same from bytes in memory; `name` stands for the file in messages.
  static Drawing read(std::string bytes, std::string name);
  /// A new, empty drawing of version AC1015 with layer "0", saved as text.
  static Drawing empty();

  Drawing(Drawing&&) noexcept;
  Drawing& operator=(Drawing&&) noexcept;
  ~Drawing();

  // The file.
  const std::filesystem::path& path() const;  // empty until read from or saved to a file
  std::string_view version() const;           // "AC1015"; "AC1009" where the file gives none
  bool is_binary() const;
  std::string code_page() const;  // as the header gives it; empty where it gives none
  std::size_t size() const;       // records
  const std::vector<Warning>& warnings() const;
  /// Decodes every record of a known kind and tells what is wrong with its values.
  std::vector<Warning> check() const;
  /// What refers to something that is not there, as far as other programs rely on it: owners,
  /// dictionaries, groups, drawing orders, reactors, names of table rows and blocks, ends of
  /// vertices and attributes. At most 100 of a sort.
  std::vector<Warning> broken_references() const;
  /// A header variable's first value as text ("$CLAYER"); nothing where the file has none.
  std::optional<std::string> header(std::string_view name) const;
  /// All of them, to look up many.
  HeaderVariables header_variables() const;
  /// Nothing is done where the file has no header.
  void set_header(std::string_view name, int code, std::int32_t value);
  /// $EXTMIN and $EXTMAX, where the header has them and they make a box.
  std::optional<Box> header_extents() const;
  /// The same of two other points.
  std::optional<Box> header_box(std::string_view low, std::string_view high) const;
  /// What the space's own viewport shows; one is added to model space where it has none. Nothing
  /// for a sheet that has no viewport yet.
  std::optional<View> view(SpaceId space);
  void write_view(SpaceId space, const View& view);

  // Tables. Names are found without regard to case.
  const std::vector<Layer>& layers() const;
  std::optional<LayerId> find_layer(std::string_view name) const;
  const Layer& layer(LayerId id) const { return layers()[index(id)]; }
  LayerId add_layer(const LayerRow& row);
  void write_layer(LayerId id, const LayerRow& row);
  const std::vector<Space>& spaces() const;  // model space first
  std::optional<SpaceId> find_space(std::string_view name) const;
  const std::vector<Layout>& layouts() const;  // "Model" first, then by tab
  // Layouts are known by their space. "Model" cannot be changed.
  /// The space is the one that is worked in: $TILEMODE, and for a sheet the block *Paper_Space.
  void activate_layout(SpaceId space);
  SpaceId add_layout(const std::string& name);
  void rename_layout(SpaceId sheet, const std::string& name);
  /// To a position from 1; the tabs are counted anew.
  void move_tab(SpaceId sheet, std::int32_t tab);
  /// With its entities. In place of the last one an empty "Layout1" is made.
  void erase_layout(SpaceId sheet);
  // Block definitions.
  SpaceId add_block(const std::string& name, Point base);
  void erase_block(SpaceId id);
  /// False, and nothing is done, where anything refers to it.
  bool erase_unused_block(SpaceId id);
  /// An external reference with everything of it: its references, and the layers, linetypes,
  /// styles and blocks that are called after it ("plan|walls").
  void detach_reference(SpaceId id);
  void rename_block(SpaceId id, const std::string& name);  // in its references too
  void write_block(SpaceId id, Point base, std::int32_t flags, const std::string& path);
  std::vector<RecordId> references_to(SpaceId block) const;  // INSERT, in all spaces
  /// Erases what nothing refers to: layers, linetypes, text and dimension styles, blocks,
  /// applications, multiline, leader and table styles, empty groups. What only purged things used
  /// stays until the next time. Returns how many.
  std::size_t purge(std::span<const std::string> names_in_use = {});
  // Dictionaries and rows of tables.
  RecordId root_dictionary() const;  // none where the file has none
  /// One that stands in the root, such as "ACAD_GROUP".
  RecordId named_dictionary(std::string_view name) const;
  std::vector<DictionaryEntry> dictionary_entries(RecordId dictionary) const;
  RecordId extension_dictionary(RecordId id) const;
  /// The owner that a record names, or 0; the records that it points to by hard pointers (340).
  Handle owner(RecordId id) const;
  std::vector<RecordId> pointed_to(RecordId id) const;
  LinetypeRow read_linetype(RecordId row) const;
  void write_linetype(RecordId row, const LinetypeRow& linetype);
  /// A continuous one. Fails where the file has no table of linetypes.
  RecordId add_linetype(const LinetypeRow& linetype);
  /// Rows of a table but LAYER and BLOCK_RECORD, in its order.
  std::vector<RecordId> rows(std::string_view table) const;
  /// Names of the rows of a table ("LTYPE", "STYLE"), in its order.
  std::vector<std::string> table(std::string_view name) const;
  bool has_row(std::string_view table, std::string_view name) const;
  /// None where there is no such row.
  RecordId find_row(std::string_view table, std::string_view name) const;
  std::vector<RecordId> text_styles() const;  // rows of shapes left out
  TextStyle read_text_style(RecordId id) const;
  void write_text_style(RecordId id, const TextStyle& style);
  /// Fails where the file has no table for it.
  RecordId add_text_style(const std::string& name);
  /// What a style says of its texts; a plain stroke font where there is no such style.
  TextLook look(std::string_view style) const;
  /// The first value of a group code in a row's record, as text; empty where it has none.
  std::string row_text(RecordId row, int code) const;
  /// What a row of the DIMSTYLE table says; not the variables that name rows.
  DimVariables read_dim_style(RecordId row) const;
  /// A copy of the table's first style. Fails where the file has no such table.
  RecordId add_dim_style(const std::string& name);
  /// Whether more than one dimension of the file as it was read shows that block.
  bool is_drawn_by_several(SpaceId block) const;
  /// A new, empty block of the next name "*D1", "*D2", ...
  SpaceId add_drawn_block();
  /// A new, empty block definition.
  SpaceId add_definition(const std::string& name, std::int32_t flags = 0);

  // Records.
  const Record& record(RecordId id) const;
  std::string_view kind_name(RecordId id) const;    // "LWPOLYLINE"
  std::string_view object_name(RecordId id) const;  // "AcDbPolyline"
  /// Has the record's bytes brought near, for who is about to read it but not at once.
  void prefetch(RecordId id) const;
  /// The record of that handle, erased ones included; none if there never was one.
  RecordId find(Handle handle) const;
  /// Entities of a space in drawing order, without erased ones.
  std::vector<RecordId> entities(SpaceId space) const;
  std::size_t entity_count(SpaceId space) const;
  /// The VERTEX or ATTRIB records of an entity, in order, without erased ones and without the
  /// SEQEND.
  std::vector<RecordId> parts(RecordId id) const;
  /// The entity a part belongs to.
  RecordId whole(RecordId part) const;
  /// All tags of the record, as they would be saved; a value that is not of its code's type is a
  /// text.
  std::vector<TagValue> tags(RecordId id) const;
  /// A number that grows with every edit: what was decoded before it changed is stale.
  std::uint64_t edition() const;

  // Entities. Fails where a value is no number (the message names line and handle).
  Entity read(RecordId id) const;
  Common read_common(RecordId id) const;
  /// Of the common values this one alone, which is found without reading the rest of the record.
  std::string read_linetype_name(RecordId id) const;
  /// Of a TEXT or MTEXT; as in its body.
  std::string read_text_string(RecordId id) const;
  Body read_body(RecordId id) const;
  /// Gives a text, whose style was changed in memory, that style's font; nothing for other kinds.
  void apply_style(Body& body) const;
  /// Brings the record to these values; bytes of values that stay the same are not touched.
  void write(RecordId id, const Entity& entity);
  void write_common(RecordId id, const Common& common);
  void write_body(RecordId id, const Body& body);
  /// Of an arc length or jogged radius dimension.
  KeptDimension read_kept_dimension(RecordId id) const;
  /// The picture that the record has of the old values goes.
  void write_kept_dimension(RecordId id, const KeptDimension& dimension);
  /// Adds at the end of a space. An ATTRIB cannot be added alone.
  RecordId add(SpaceId space, const Entity& entity);
  /// A block reference with these attributes (each an Attrib) at the end of a space.
  RecordId add_reference(SpaceId space, const Common& common, Insert insert,
                         const std::vector<Entity>& attributes);
  void erase(RecordId id);
  /// A copy of the entity with its parts, at the end of its space.
  RecordId copy(RecordId id);
  /// The same at the end of another space.
  RecordId copy_to(RecordId id, SpaceId space);
  /// Has an object told of changes to the entity, or no more. Nothing in R12, which has no such.
  void add_reactor(RecordId id, Handle reactor);
  void remove_reactor(RecordId id, Handle reactor);
  bool has_extension_dictionary(RecordId id) const;
  /// The extended data as tags (group code from 1001 on, value as text); see also write_xdata.
  std::vector<std::pair<int, std::string>> read_xdata(RecordId id) const;
  /// Replaces the extended data of the applications named in `tags` (each run begins with 1001).
  void write_xdata(RecordId id, const std::vector<std::pair<int, std::string>>& tags);

  // Steps that can be taken back, in any number.
  /// From now on edits can be taken back.
  void keep_history();
  /// What was edited since the last step is one under this name; nothing where nothing was. Tells
  /// what it did to entities.
  std::optional<Changes> end_step(std::string name);
  /// Takes the last step back, does it again; its name, or nothing where there is none. What is
  /// edited afterwards ends what could be done again. Entities that were added by a step taken back
  /// are erased ones.
  std::optional<std::string> undo();
  std::optional<std::string> redo();

  // Saving.
  Changes changes() const;
  bool is_changed() const;
  /// Writes a temporary file beside the target and renames it over: on failure the old file is
  /// whole. Refused where the target is the file this was read from and it has changed since.
  /// Afterwards the drawing is the file of that path.
  void save(const std::filesystem::path& path);
  /// Saves what convert() gave. In memory the drawing stays what it was, and counts as saved.
  void save(const std::filesystem::path& path, const Conversion& conversion);
  /// From now on every save is noted there before it takes effect.
  void keep_journal(std::shared_ptr<Journal> journal);
  /// The whole drawing as it would be saved.
  std::string bytes() const;
  /// The same in another form or release. Fails where a value has no room in binary form, and for
  /// records of which a line is no DXF.
  Conversion convert(const ConversionTarget& target) const;

 private:
  explicit Drawing(std::unique_ptr<Store> store);
  void save_pieces(const std::filesystem::path& path, const std::vector<std::string_view>& pieces);
  std::unique_ptr<Store> store_;
};

}  // namespace velmar::drawing
