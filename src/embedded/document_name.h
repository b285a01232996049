#pragma once

#include <string>

#include "embedded/document_state.h"

namespace velmar::embedded {

/// The file's name with its extension; "Drawing1.dwg" for what was never saved.
std::string document_name(const DocumentState& document);
/// The folder, without a separator at its end; empty for what was never saved.
std::string document_folder(const DocumentState& document);
/// Folder and name; empty for what was never saved.
std::string document_full_name(const DocumentState& document);

}  // namespace velmar::embedded
