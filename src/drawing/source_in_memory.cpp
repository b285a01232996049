#include "drawing/source.h"

namespace velmar::drawing {

Source Source::of(std::string bytes) {
  auto kept = std::make_shared<const std::string>(std::move(bytes));
  Source source;
  source.bytes_ = *kept;
  source.owner_ = std::move(kept);
  return source;
}

}  // namespace velmar::drawing
