#include "drawing/convert/loss.h"

#include <algorithm>

namespace velmar::drawing {

void LossList::count(std::string_view what, std::string_view outcome, Handle handle,
                     bool harmless) {
  constexpr std::size_t most_examples = 3;
  auto found = std::ranges::find_if(
      list_, [&](const Loss& loss) { return loss.what == what && loss.outcome == outcome; });
  if (found == list_.end()) {
    list_.push_back({std::string(what), std::string(outcome), harmless, 0, {}});
    found = list_.end() - 1;
  }
  ++found->count;
  if (handle != 0 && found->examples.size() < most_examples) found->examples.push_back(handle);
}

}  // namespace velmar::drawing
