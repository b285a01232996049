#pragma once

#include <string>

namespace velmar::fuzz {

/// Opens the bytes as a drawing, looks at all of it, saves it untouched, edited, and in both forms.
/// Faults: an untouched drawing that is saved as other bytes; what was saved does not open again.
void open_and_save(std::string bytes);

}  // namespace velmar::fuzz
