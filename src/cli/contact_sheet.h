#pragma once

#include <string>
#include <vector>

#include "cli/action.h"
#include "cli/picture_options.h"

namespace velmar::cli {

/// One picture with the model spaces of many drawings side by side, each above its path. A drawing
/// that cannot be read, or shows nothing, leaves its place empty.
ExitCode render_contact_sheet(const std::vector<std::string>& drawings,
                              const PictureOptions& options);

}  // namespace velmar::cli
