#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "basic/conversion.h"
#include "embedded/arguments.h"
#include "embedded/errors.h"
#include "host/object.h"

namespace velmar::embedded {

/// A walk over a list made when it began; `show` gives the object of an id, or nothing where it is
/// gone by now.
template <class Id, class Show>
class SnapshotWalk final : public host::Enumerator {
 public:
  SnapshotWalk(std::vector<Id> ids, Show show) : ids_(std::move(ids)), show_(std::move(show)) {}

  bool next(Value& item) override {
    while (at_ < ids_.size()) {
      if (std::optional<Value> shown = show_(ids_[at_++])) {
        item = std::move(*shown);
        return true;
      }
    }
    return false;
  }

 private:
  std::vector<Id> ids_;
  Show show_;
  std::size_t at_ = 0;
};

template <class Id, class Show>
std::unique_ptr<host::Enumerator> walk(std::vector<Id> ids, Show show) {
  return std::make_unique<SnapshotWalk<Id, Show>>(std::move(ids), std::move(show));
}

/// The argument of Item where it is a position: from 0 to below the count, or an invalid argument.
/// Nothing where it is a name.
inline std::optional<std::size_t> item_position(const Arguments& arguments, std::size_t count) {
  if (arguments[0].is<std::string>()) return std::nullopt;
  return arguments.index(0, count);
}

}  // namespace velmar::embedded
