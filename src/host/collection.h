#pragma once

#include <concepts>
#include <cstdint>
#include <iterator>
#include <memory>
#include <string_view>

#include "host/view.h"

namespace velmar::host {

/// Steps through a collection for range-for; each item as a T. The walk holds the only reference to
/// an item that nobody keeps: its object is handed back to the host, which may use it for the next.
template <std::derived_from<View> T>
class Walk {
 public:
  explicit Walk(std::unique_ptr<Enumerator> items) : items_(std::move(items)) { ++*this; }

  const T& operator*() const { return current_; }
  Walk& operator++() {
    if (auto* object = item_.if_is<basic::Reference>()) *object = std::move(current_).object();
    at_end_ = !items_->next(item_);
    current_ = T(at_end_ ? nullptr : taken_object(item_));
    return *this;
  }
  friend bool operator==(const Walk& walk, std::default_sentinel_t) { return walk.at_end_; }

 private:
  std::unique_ptr<Enumerator> items_;
  Value item_;
  T current_;
  bool at_end_ = false;
};

/// A host collection of T, in the host's order, counted from 0.
template <std::derived_from<View> T>
class Collection : public View {
 public:
  using View::View;

  Walk<T> begin() const { return Walk<T>(enumerate()); }
  std::default_sentinel_t end() const { return {}; }

  std::int32_t Count() const { return get<std::int32_t>(Member::Count); }
  T Item(std::int32_t index) const { return from_value<T>(call(Member::Item, index)); }
  T Item(std::string_view name) const { return from_value<T>(call(Member::Item, name)); }
};

}  // namespace velmar::host
