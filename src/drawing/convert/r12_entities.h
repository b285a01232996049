#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/convert/loss.h"
#include "drawing/convert/tag_drawing.h"
#include "drawing/drawing.h"

namespace velmar::drawing {

/// Gives what stands for an entity in R12, which does not have its kind, as records of R12; the
/// first one keeps the handle. Counts what is lost by it.
class R12Entities {
 public:
  R12Entities(const Drawing& drawing, TagDrawing& written, LossList& losses)
      : drawing_(drawing), written_(written), losses_(losses) {}

  /// Empty where it is dropped.
  std::vector<TagRecord> instead_of(const TagRecord& record);
  /// Blocks that were made for hatches.
  std::vector<TagBlock> take_blocks() { return std::move(blocks_); }

 private:
  std::vector<TagRecord> polyline(const TagRecord& record, const LwPolyline& polyline);
  std::vector<TagRecord> polyline(const TagRecord& record, const std::vector<Point>& points);
  std::vector<TagRecord> texts(const TagRecord& record, const MText& text);
  std::vector<TagRecord> hatch(const TagRecord& record, const Hatch& hatch);
  std::vector<TagRecord> dropped(const TagRecord& record);
  void seal(const TagRecord& record, std::vector<TagRecord>& made);

  const Drawing& drawing_;
  TagDrawing& written_;
  LossList& losses_;
  std::vector<TagBlock> blocks_;
};

/// A block reference to the drawn block of an entity that a release does not have (a table, a newer
/// sort of dimension), with subclass markers; nothing where it names none.
std::optional<TagRecord> drawn_reference(const TagRecord& record);
/// The tags that every entity has in R12 too, and no others.
Tags common_tags(const TagRecord& record);

}  // namespace velmar::drawing
