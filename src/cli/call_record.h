#pragma once

#include <optional>
#include <string>
#include <vector>

#include "basic/failure.h"
#include "basic/value.h"
#include "component/method.h"
#include "drawing/drawing.h"
#include "embedded/scripted_input.h"

namespace velmar::cli {

/// What a call did to one drawing.
struct DrawingChanges {
  std::string drawing;  // its path, as the user gave it
  drawing::Changes changes;
  std::string saved_to = {};  // empty: not saved
  bool only_others = false;   // layers, blocks or other data changed, but no entity
};

/// A call of a method, all that is told of it afterwards.
struct CallRecord {
  const Method* method = nullptr;
  std::vector<basic::Value> arguments;  // one for each parameter; after the call those left in them
  std::vector<basic::Value> given = {};  // what they were before, where that is kept
  basic::Value result;
  embedded::Transcript transcript;
  std::vector<DrawingChanges>
      drawings;  // those that were changed or saved, by the method or after it
  std::optional<basic::Failure> failure;       // what the method failed with
  std::optional<std::string> drawing_failure;  // why a drawing was not opened or saved
  std::vector<std::string> refused;            // why the method could not open or save drawings
  bool was_interrupted = false;                // by Ctrl-C
};

}  // namespace velmar::cli
