#pragma once

#include <vector>

#include "drawing/drawing.h"
#include "embedded/arguments.h"

namespace velmar::embedded {

/// What a selection takes: entities that meet every condition. Conditions are group codes with
/// values: 0 kind ("TEXT,MTEXT"), 2 block name, 8 layer, 62 colour index, 410 layout name; names
/// with wildcards (wildcard.h).
class SelectionFilter {
 public:
  /// From the arguments FilterType at `position` and FilterData after it; without them everything
  /// passes. Other group codes and the operators of code -4 are an invalid argument.
  static SelectionFilter from(const Arguments& arguments, std::size_t position);

  /// Those of the entities that pass, in their order; erased ones never do.
  std::vector<drawing::RecordId> passed(const drawing::Drawing& drawing,
                                        std::vector<drawing::RecordId> entities) const;

 private:
  struct Condition {
    std::int32_t code;
    Value value;
  };
  bool passes(const drawing::Drawing& drawing, drawing::RecordId id) const;

  std::vector<Condition> conditions_;
};

}  // namespace velmar::embedded
