#include "embedded/undo.h"

namespace velmar::embedded {
namespace {

/// The drawing's own word for the space that is worked in counts again.
void follow(DocumentState& document) {
  if (document.drawing.header("$TILEMODE")) document.variables.erase("TILEMODE");
}

}  // namespace

std::optional<std::string> undo(DocumentState& document) {
  std::optional<std::string> name = document.drawing.undo();
  follow(document);
  return name;
}

std::optional<std::string> redo(DocumentState& document) {
  std::optional<std::string> name = document.drawing.redo();
  follow(document);
  return name;
}

}  // namespace velmar::embedded
