#include "com/idl/texts.h"
namespace velmar::com {
std::string autolisp_glue(std::span<const Method>) { return "x"; }
}  // namespace velmar::com
