#pragma once

#include <filesystem>
#include <vector>

#include "drawing/convert/loss.h"
#include "embedded/document_state.h"

namespace velmar::embedded {

/// Saves a drawing for the release that it was last saved as. Returns what that release cannot
/// hold; in memory the drawing keeps all. Fails with drawing::Error.
std::vector<drawing::Loss> save_document(DocumentState& document,
                                         const std::filesystem::path& path);

}  // namespace velmar::embedded
