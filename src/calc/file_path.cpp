#include <algorithm>
#include <span>
#include <vector>

#include "basic/failure.h"
#include "basic/strings.h"
#include "component/velmar16.h"

namespace velmar {

std::string Velmar16::GetFolder(std::string& PathL) {
  const std::vector<std::string> pieces = basic::split(PathL, "\\");
  if (pieces.empty()) throw basic::Failure(basic::subscript_out_of_range);
  const std::size_t kept = std::max<std::size_t>(pieces.size() - 1, 1);
  return basic::join(std::span(pieces).first(kept), "\\");
}

// Kept: the last four characters go, whether or not they are an extension.
std::string Velmar16::GetFileName(std::string& FileName) {
  return basic::left(FileName, basic::len(FileName) - 4);
}

}  // namespace velmar
