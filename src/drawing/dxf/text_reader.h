#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "drawing/dxf/damage.h"
#include "drawing/dxf/head.h"
#include "drawing/dxf/known_lines.h"

namespace velmar::drawing::dxf {

/// Finds the records of text DXF one after the other, each with its head.
class TextReader {
 public:
  /// Lines end with the last character of `new_line`.
  TextReader(std::string_view bytes, std::size_t from, const std::string& new_line);

  /// Goes to the first record; false if there is none.
  bool first();
  /// The head of the record at `begin()`; false at the end of the text. Call behind() next.
  bool head(HeadCollector& collector);
  std::size_t begin() const { return begin_; }
  /// Where the record ends and the next one begins. Damage within it is passed over: the record
  /// goes on to the next group 0 with a name.
  std::size_t end_of_record();
  /// Goes from the head whose name turned out to be none to the next record; that is damage of the
  /// record before it. Names that begin with a letter are left to the caller, who knows those that
  /// came before.
  std::size_t pass_nameless();
  /// Damage of the record that was ended last.
  const std::optional<Damage>& damage() const { return damage_; }

 private:
  struct Line {
    std::string_view text;  // without line end, blanks around trimmed
    std::size_t next = 0;
    bool whole = true;  // has a line end
  };
  Line line(std::size_t from) const;
  const char* usual_head(const char* at, HeadCollector& collector);
  std::size_t careful(std::size_t from);
  std::size_t resynchronise(std::size_t from);
  bool record_begins(std::size_t at) const;

  /// The lines, values left out, with which most programs begin an entity.
  struct UsualLines {
    KnownLines<1> zero, handle, owner, marker;
    KnownLines<3> class_and_layer;
  };

  std::string_view bytes_;
  std::size_t at_;  // a group code line
  char line_end_;
  UsualLines usual_;
  std::string_view owner_;  // that came last
  KnownLines<2> owner_line_;
  std::size_t begin_ = 0;
  std::optional<Damage> damage_;
};

}  // namespace velmar::drawing::dxf
