#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "drawing/dxf/format.h"
#include "drawing/error.h"
#include "drawing/record.h"
#include "drawing/tag_value.h"

/// A drawing as lists of tags, section by section: what is rewritten when a drawing goes to another
/// release. Texts are UTF-8 with `\U+XXXX` as the file has it; binary data is hexadecimal text.
namespace velmar::drawing {

using Tags = std::vector<TagValue>;

/// A record without its group 0, handle and owner, which stand here.
struct TagRecord {
  std::string kind;  // "LWPOLYLINE"
  Handle handle = 0, owner = 0;
  Tags tags;
  RecordId source = RecordId::none;  // what it was read from

  bool is(std::string_view wanted) const { return kind == wanted; }
};

struct TagTable {
  std::string name;
  TagRecord head;
  std::vector<TagRecord> rows;
};

struct TagBlock {
  TagRecord begin;
  std::vector<TagRecord> entities;
  TagRecord end;
};

struct TagSection {
  Tags head;  // behind group 2
  std::string name;
  std::vector<TagRecord> records;
};

struct TagDrawing {
  std::string version;
  std::vector<Tags> header;  // each variable begins with its group 9
  std::vector<TagRecord> classes;
  std::vector<TagTable> tables;
  std::vector<TagBlock> blocks;
  std::vector<TagRecord> entities, objects;
  std::vector<TagSection> others;  // behind the objects
  Handle next_handle = 1;

  Handle new_handle() { return next_handle++; }
  bool has_subclasses() const { return version >= "AC1012"; }
  /// Null where there is none.
  Tags* variable(std::string_view name);
  void set_variable(std::string_view name, TagValue value);
  TagTable* table(std::string_view name);
  TagRecord* row(std::string_view table, std::string_view name);
  TagBlock* block(std::string_view name);

  /// Calls `visit(record)` for every record that may have a handle, classes left out.
  template <class Visit>
  void each(Visit visit);
  /// The same for the lists of entities: `visit(std::vector<TagRecord>&)`.
  template <class Visit>
  void each_space(Visit visit) {
    for (TagBlock& block : blocks) visit(block.entities);
    visit(entities);
  }
};

/// The first value of a code outside of groups in braces and extended data; null where there is
/// none.
const TagValue* find_tag(const Tags& tags, int code);
std::string text_of(const Tags& tags, int code);
std::int64_t integer_of(const Tags& tags, int code, std::int64_t otherwise = 0);
double real_of(const Tags& tags, int code, double otherwise = 0);
/// The handle that is a tag's value; 0 where it is none.
Handle handle_of(const TagValue& tag);
TagValue handle_tag(int code, Handle handle);
void add_real(Tags& tags, int code, double value);
void add_integer(Tags& tags, int code, std::int64_t value);
void add_text(Tags& tags, int code, std::string_view value);
/// Before the tag of that position.
void insert_tag(Tags& tags, std::size_t at, TagValue tag);
/// Where extended data begins.
std::size_t xdata_of(const Tags& tags);
/// The name of a row or of a BLOCK.
inline std::string name_of(const TagRecord& record) { return text_of(record.tags, 2); }

/// Appends a tag in the format's form and encoding. Fails with Error (without a place) where a
/// value is not what its group code demands and the form has no room for it.
void append_tag(std::string& out, const TagValue& tag, const dxf::Format& format);
/// The whole file.
std::string file_bytes(const TagDrawing& drawing, const dxf::Format& format);

template <class Visit>
void TagDrawing::each(Visit visit) {
  for (TagTable& each_table : tables) {
    visit(each_table.head);
    for (TagRecord& row_record : each_table.rows) visit(row_record);
  }
  for (TagBlock& each_block : blocks) {
    visit(each_block.begin);
    for (TagRecord& entity : each_block.entities) visit(entity);
    visit(each_block.end);
  }
  for (TagRecord& entity : entities) visit(entity);
  for (TagRecord& object : objects) visit(object);
  for (TagSection& section : others) {
    for (TagRecord& record : section.records) visit(record);
  }
}

}  // namespace velmar::drawing
