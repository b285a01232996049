#pragma once

#include <optional>
#include <string>

#include "drawing/dxf/format.h"
#include "drawing/error.h"

namespace velmar::drawing::dxf {

/// The record with another handle; put in where it has none.
std::string with_handle(std::string_view bytes, Handle handle, const Format& format);
/// For a copy: another handle and owner, without the reactors and the extension dictionary, which
/// belong to the original.
std::string copied(std::string_view bytes, Handle handle, std::optional<Handle> owner,
                   const Format& format);
/// The entity as one of paper space, which group 67 before its layer says, or as none.
std::string with_paper_mark(std::string_view bytes, bool in_paper, const Format& format);
/// The entity without the picture of it that its writer left for programs that do not know its
/// kind.
std::string without_preview(std::string_view bytes, const Format& format);
/// The header with another value for a variable that it has.
std::string with_variable(std::string_view header, std::string_view name, std::string_view value,
                          const Format& format);

}  // namespace velmar::drawing::dxf
