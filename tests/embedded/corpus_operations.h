#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "drawing/tag_value.h"
#include "embedded/entity_scene.h"

namespace velmar::embedded {

/// What is compared of an entity before and after.
struct Look {
  std::optional<drawing::Box> box;
  std::optional<double> area, length;
};
Look look_of(host::Object& object);

/// What was done, for the time when the drawing is read again.
struct Done {
  Look before;
  std::shared_ptr<host::Object> object;  // what to look at: the entity itself or a copy
  std::vector<drawing::TagValue> tags;   // of the entity before
  Value wanted = {};                     // of the member that was put
};

struct Operation {
  std::string name;
  /// Fails where the kind does not allow it.
  std::function<void(host::Object&, Done&)> apply;
  std::function<void(const Done&, host::Object& saved)> verify;
  /// Which tags of the entity may differ afterwards.
  std::function<bool(const drawing::TagValue&)> may_differ = [](const auto&) { return true; };
};

/// One of everything that can be done to entities, the common before the rare.
std::vector<Operation> operations();

inline std::string text_of(host::Object& object, Member member) {
  return basic::convert<std::string>(object.get(member));
}

}  // namespace velmar::embedded
