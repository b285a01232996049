#pragma once

#include <unordered_map>
#include <vector>

#include "drawing/dxf/head.h"
#include "drawing/dxf/view_cache.h"
#include "drawing/store.h"

namespace velmar::drawing::dxf {

/// Builds the structure of a drawing while its records go by: sections, tables, blocks, layers,
/// spaces, layouts.
class Structure {
 public:
  explicit Structure(Store& store);

  /// A record begins.
  /// False: what should be its name is none, so it is no record.
  bool begin(std::size_t offset, const Head& head);
  /// The record that began last ends where the next one begins; its bytes can be read.
  void end();
  /// All records have gone by.
  void finish();

  void warn(std::size_t offset, std::string text);
  bool at_eof() const { return kind_ == Kind::eof; }
  bool has_section() const { return has_section_; }

 private:
  enum class Section { none, header, tables, blocks, entities, objects, other };

  void make_room(std::size_t offset);
  std::optional<Kind> kind_of(std::string_view name);
  void begin_entity(Record& record, const Head& head);
  void end_section_start();
  void read_header();
  void end_table_row();
  void end_layer();
  void end_block_record();
  void end_block();
  void end_layout();
  SpaceId space_by_owner(std::string_view owner, bool in_paper_space);
  SpaceId paper_space();
  SpaceId make_space(std::string name);
  void place_unresolved();
  void finish_layouts();
  void finish_handles();

  Store& store_;
  Section section_ = Section::none;
  std::string table_;
  SpaceId block_ = SpaceId::none;
  Kind kind_{};
  RecordId current_ = RecordId::none;
  RecordId whole_ = RecordId::none;  // a POLYLINE or INSERT that parts may follow
  bool has_section_ = false;

  ViewCache<std::optional<Kind>> kinds_;
  ViewCache<LayerId> layers_;
  ViewCache<SpaceId> owners_;
  std::unordered_map<Handle, SpaceId> space_of_owner_;
  struct Unresolved {
    RecordId entity;
    Handle owner;
    bool in_paper_space;
  };
  std::vector<Unresolved> unresolved_;
  struct NamedLayout {
    Layout layout;
    Handle block_record;
  };
  std::vector<NamedLayout> layouts_;
  std::size_t counted_to_ = 0;  // where the line count of warnings stands
  std::uint64_t counted_line_ = 1;
  std::size_t silent_warnings_ = 0;
};

}  // namespace velmar::drawing::dxf
