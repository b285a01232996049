#pragma once

#include <optional>

#include "drawing/dxf/damage.h"
#include "drawing/dxf/format.h"
#include "drawing/dxf/head.h"
#include "drawing/dxf/tag.h"

namespace velmar::drawing::dxf {

/// Finds the records of binary DXF one after the other; the same functions as TextReader.
class BinaryReader {
 public:
  BinaryReader(std::string_view bytes, std::size_t from, const Format& format)
      : bytes_(bytes), at_(from), format_(format) {}

  bool head(HeadCollector& collector);
  std::size_t begin() const { return begin_; }
  std::size_t end_of_record();
  std::size_t pass_nameless();
  /// Binary data that makes no sense cannot be passed over: the record goes on to the end of the
  /// file.
  const std::optional<Damage>& damage() const { return damage_; }

 private:
  bool next();

  std::string_view bytes_;
  std::size_t at_;
  const Format& format_;
  std::size_t begin_ = 0;
  Tag tag_;  // the latest, its offsets from `here_`
  std::string_view here_;
  std::optional<Damage> damage_;
};

}  // namespace velmar::drawing::dxf
