#pragma once

#include <span>
#include <string>

#include "component/method.h"

/// Texts printed from the method table when the system is built.
namespace velmar::com {

/// The type library in the interface definition language, as widl reads it.
std::string type_library_idl(std::span<const Method> methods);

/// AutoLISP functions (velmar:Name) and commands (VmName) for all methods.
std::string autolisp_glue(std::span<const Method> methods);

/// A Basic module with a declared function for each method.
std::string vba_glue(std::span<const Method> methods);

}  // namespace velmar::com
