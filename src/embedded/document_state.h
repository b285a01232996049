#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "basic/value.h"
#include "drawing/drawing.h"

namespace velmar::embedded {

/// A named selection of entities, in the order they were chosen.
struct SelectionState {
  std::string name;
  std::vector<drawing::RecordId> entities;
};

/// An open drawing with what the host keeps beside it; shared by all objects that stand for parts
/// of it.
struct DocumentState {
  explicit DocumentState(drawing::Drawing opened) : drawing(std::move(opened)) {}

  drawing::Drawing drawing;
  bool read_only = false;
  bool closed = false;  // objects of a closed drawing fail
  std::vector<std::shared_ptr<SelectionState>> selections;
  std::vector<drawing::RecordId> previous_selection;

  std::string name_until_saved;  // "Drawing1.dwg"
  std::string save_version;      // of the release it was last saved as; empty: its own
  drawing::Point last_point;     // where the user last gave one
  std::optional<drawing::LayerId> current_layer;  // chosen since opening; see current.h
  std::map<std::string, basic::Value> variables;  // set since opening, by upper-case name
  std::weak_ptr<basic::Referenced> application, document;
};
using DocumentPointer = std::shared_ptr<DocumentState>;

}  // namespace velmar::embedded
