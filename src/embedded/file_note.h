#pragma once

#include <filesystem>
#include <string>

#include "drawing/drawing.h"

namespace velmar::embedded {

/// What a command did to a file by itself, or could not do.
struct FileNote {
  std::string drawing;            // its file, or its name where it had none
  drawing::Changes changes = {};  // that a save wrote, or in a dry run would have written
  std::string saved_to = {};      // empty: it was not saved
  std::string failure = {};       // why it could not be opened or saved
};

}  // namespace velmar::embedded
