#include "drawing/dxf/loader.h"

#include "drawing/dxf/binary_reader.h"
#include "drawing/dxf/structure.h"
#include "drawing/dxf/tag.h"
#include "drawing/dxf/text_reader.h"

namespace velmar::drawing::dxf {
namespace {

constexpr std::string_view mark_of_binary("AutoCAD Binary DXF\r\n\x1a\0", 22);
constexpr std::string_view binary_name = "AutoCAD Binary DXF";
constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

[[noreturn]] void refuse(const Store& store, const std::string& why) {
  throw Error(store.name + ": " + why);
}

char line_end_of(std::string_view bytes) {
  constexpr std::size_t enough = 4096;
  return bytes.substr(0, enough).find('\n') == std::string_view::npos &&
                 bytes.find('\r') != std::string_view::npos
             ? '\r'
             : '\n';
}

std::string new_line_of(std::string_view bytes, char line_end) {
  if (line_end == '\r') return "\r";
  const auto first = bytes.find('\n');
  return first != std::string_view::npos && first > 0 && bytes[first - 1] == '\r' ? "\r\n" : "\n";
}

/// The tags of a record are counted with 32 bits.
constexpr std::uint64_t most_bytes_of_record = 0xFFFF'FFFF;

[[noreturn]] void refuse_giant(const Store& store) {
  const auto latest = static_cast<RecordId>(store.records.size() - 1);
  throw Error(store.where(latest, 0) + ": is larger than 4 GB, more than a record can be here");
}

/// What both forms have in common: one record after the other, up to EOF.
template <class Reader>
void read_records(Store& store, Reader& reader) {
  Structure structure(store);
  HeadCollector collector;
  // Ends the latest record there, and tells the damage that the reader met on the way.
  const auto end_record = [&](std::size_t end) {
    store.records_end = end;
    Record& latest = store.records.back();
    if (const auto& damage = reader.damage()) {
      latest.flags |= Record::damaged;
      structure.warn(damage->offset, damage->text);
    }
    if (end - latest.begin > most_bytes_of_record) refuse_giant(store);
  };
  store.records_end = reader.begin();
  while (reader.head(collector)) {
    if (!structure.begin(reader.begin(), collector.head())) {
      if (store.records.empty()) refuse(store, "is no DXF drawing: its first group 0 is no name");
      end_record(reader.pass_nameless());
      continue;
    }
    if (structure.at_eof()) {
      // What follows the two lines of EOF is not read.
      TagCursor cursor(store.source.bytes().substr(reader.begin()), store.format);
      Tag tag;
      cursor.next(tag);
      store.records_end = reader.begin() + tag.next;
      break;
    }
    end_record(reader.end_of_record());
    structure.end();
  }
  if (!structure.has_section()) refuse(store, "is no DXF drawing: it has no section");
  const std::string_view rest = store.source.bytes().substr(store.records_end);
  if (structure.at_eof() && rest.find_first_not_of(" \t\r\n\x1a") != std::string_view::npos) {
    structure.warn(store.records_end, "what follows EOF is not read; it is kept as it is");
  }
  structure.finish();
}

void load_text(Store& store, std::size_t from) {
  const std::string_view bytes = store.source.bytes();
  store.format.line_end = line_end_of(bytes);
  store.format.new_line = new_line_of(bytes, store.format.line_end);
  TextReader reader(bytes, from, store.format.new_line);
  if (!reader.first()) {
    refuse(store, "is no DXF drawing: " +
                      (reader.damage()
                           ? "at its beginning " +
                                 reader.damage()->text.substr(0, reader.damage()->text.find(';'))
                           : std::string("it has no group 0")));
  }
  read_records(store, reader);
}

void load_binary(Store& store) {
  const std::string_view bytes = store.source.bytes();
  if (!bytes.starts_with(mark_of_binary)) {
    refuse(store,
           "the mark of a binary DXF file is damaged, as by a program that changes line ends; get "
           "the file again, transferred as binary");
  }
  store.format.binary = true;
  store.format.wide_codes = bytes.size() > 23 && bytes[22] == 0 && bytes[23] == 0;
  BinaryReader reader(bytes, mark_of_binary.size(), store.format);
  read_records(store, reader);
}

}  // namespace

void load(Store& store) {
  const std::string_view bytes = store.source.bytes();
  if (bytes.starts_with("AC10") || bytes.starts_with("AC1.") || bytes.starts_with("AC2.")) {
    refuse(store, "is a DWG drawing (" + std::string(bytes.substr(0, 6)) +
                      "); DWG drawings cannot be read yet. Save it as DXF first");
  }
  if (bytes.starts_with(binary_name)) return load_binary(store);
  load_text(store, bytes.starts_with(utf8_mark) ? utf8_mark.size() : 0);
}

}  // namespace velmar::drawing::dxf
