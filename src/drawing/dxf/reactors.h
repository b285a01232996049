#pragma once

#include <string>

#include "drawing/dxf/format.h"
#include "drawing/error.h"

namespace velmar::drawing::dxf {

// The reactors of an entity, in its group {ACAD_REACTORS: objects that follow its changes.

/// The record with one more reactor; the same where it has it.
std::string with_reactor(std::string_view bytes, Handle reactor, const Format& format);
/// The record without that reactor, and without the group where it was the only one.
std::string without_reactor(std::string_view bytes, Handle reactor, const Format& format);

}  // namespace velmar::drawing::dxf
