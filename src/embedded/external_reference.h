#pragma once

#include <filesystem>

#include "embedded/block_object.h"
#include "embedded/properties/table.h"

namespace velmar::embedded {

/// Unload, Reload, Detach, Bind: of blocks that are external references alone, "Not that kind of
/// class" for others. What is in the file is never looked at: only whether it is there.
std::span<const Method<BlockObject>> external_reference_methods();

/// The file of an external reference: at its path, seen from the drawing's folder, or in that
/// folder; Filer error where it is in none.
std::filesystem::path require_referenced_file(const DocumentState& document,
                                              const std::string& path);

inline constexpr std::int32_t resolved_flag = 32;

}  // namespace velmar::embedded
