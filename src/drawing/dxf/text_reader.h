#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "drawing/dxf/damage.h"
#include "drawing/dxf/head.h"

namespace velmar::drawing::dxf {

/// Finds the records of text DXF one after the other, each with its head.
class TextReader {
 public:
  TextReader(std::string_view bytes, std::size_t from, char line_end)
      : bytes_(bytes), at_(from), line_end_(line_end) {}

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
  std::size_t careful(std::size_t from);
  std::size_t resynchronise(std::size_t from);
  bool record_begins(std::size_t at) const;

  std::string_view bytes_;
  std::size_t at_;  // a group code line
  char line_end_;
  std::size_t begin_ = 0;
  std::optional<Damage> damage_;
};

}  // namespace velmar::drawing::dxf
