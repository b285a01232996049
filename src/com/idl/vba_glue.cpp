#include "com/idl/texts.h"
namespace velmar::com {
std::string vba_glue(std::span<const Method>) { return "x"; }
}  // namespace velmar::com
