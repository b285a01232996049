#include <string>
#include <vector>

#include "basic/strings.h"
#include "batch/folder_files.h"
#include "component/velmar16.h"

namespace velmar {

Empty Velmar16::DelFilNam(std::string& Pathm, std::string& TxtDel, std::string& FType) {
  for (const std::string& file : files_of_type(system(), Pathm, FType)) {
    const auto pieces = basic::split(file, TxtDel, basic::Compare::text);
    if (pieces.size() < 2) continue;
    // Kept: what follows a second occurrence is dropped.
    const std::string target = pieces[0] + pieces[1];
    // Kept: a file is renamed only where that replaces another one.
    if (!system().file_exists(target)) continue;
    system().delete_file(target);
    system().move_file(file, target);
  }
  return {};
}

}  // namespace velmar
