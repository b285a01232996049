#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "drawing/name.h"

namespace velmar::drawing {

/// Finds what stands under a name in a list that only grows, without walking through it each time.
/// Whoever gives something in the list another name tells by forget().
class NameIndex {
 public:
  /// The first place of the list under that name of which `is_there(place)` holds.
  template <class Named, class IsThere>
  std::optional<std::size_t> find(const std::vector<Named>& list, std::string_view wanted,
                                  IsThere is_there) {
    for (; known_ < list.size(); ++known_) {
      places_[folded_name(list[known_].name)].push_back(known_);
    }
    const auto under_name = places_.find(folded_name(wanted));
    if (under_name == places_.end()) return std::nullopt;
    for (const std::size_t place : under_name->second) {
      if (is_there(place)) return place;
    }
    return std::nullopt;
  }

  void forget() {
    places_.clear();
    known_ = 0;
  }

 private:
  std::unordered_map<std::string, std::vector<std::size_t>> places_;
  std::size_t known_ = 0;
};

}  // namespace velmar::drawing
