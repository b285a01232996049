#pragma once

#include <filesystem>
#include <vector>

#include "drawing/convert/loss.h"
#include "embedded/document_state.h"

namespace velmar::embedded {

/// Saves a drawing for a release ("AC1015"; empty: its own), from now on the one it is saved for.
/// Returns what that release cannot hold; in memory the drawing keeps all. Fails with
/// drawing::Error.
std::vector<drawing::Loss> save_document(DocumentState& document, const std::filesystem::path& path,
                                         const std::string& version);
/// For the release that it was last saved for.
inline std::vector<drawing::Loss> save_document(DocumentState& document,
                                                const std::filesystem::path& path) {
  return save_document(document, path, document.save_version);
}

}  // namespace velmar::embedded
