#include "embedded/document_name.h"

namespace velmar::embedded {

std::string document_name(const DocumentState& document) {
  const std::filesystem::path& path = document.drawing.path();
  return path.empty() ? document.name_until_saved : path.filename().string();
}

std::string document_folder(const DocumentState& document) {
  return document.drawing.path().parent_path().string();
}

std::string document_full_name(const DocumentState& document) {
  return document.drawing.path().string();
}

}  // namespace velmar::embedded
