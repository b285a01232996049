#pragma once

#include <filesystem>

namespace velmar::drawing {

/// Waits until what was written to the file is on the disk; false where it cannot get there.
bool flush_to_disk(const std::filesystem::path& path);

}  // namespace velmar::drawing
