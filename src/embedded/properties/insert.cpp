#include "embedded/properties/kinds.h"

namespace velmar::embedded {

bool hides(const drawing::Insert& insert, Member member) {
  const bool of_arrays = member == Member::Columns || member == Member::Rows ||
                         member == Member::ColumnSpacing || member == Member::RowSpacing;
  return of_arrays && !insert.is_array();
}

}  // namespace velmar::embedded
