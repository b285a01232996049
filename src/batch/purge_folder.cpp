#include <string>
#include <vector>

#include "batch/folder_files.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::ResumeNext;

/// Kept: what follows a failing Open acts on whatever drawing is active.
void purge(ResumeNext& step, const std::string& file) {
  constexpr int passes = 4;  // each removes what only things of the pass before used
  step([&] { application().Documents().Open(file); });
  for (int pass = 0; pass < passes; ++pass) step([&] { active_document().PurgeAll(); });
  step([&] { application().ZoomExtents(); });
  step([&] { active_document().Save(); });
  step([&] { active_document().Close(false); });
}

/// Whether there was a drawing.
bool purge_all(ResumeNext& step, const System& system, const std::string& folder) {
  std::vector<std::string> files;
  step([&] { files = files_of_type(system, folder, "DWG"); });
  for (const std::string& file : files) purge(step, file);
  return !files.empty();
}

}  // namespace

Empty Velmar16::PurgeALLFolder(std::string& Pathm) {
  ResumeNext step;
  std::vector<std::string> subfolders;
  step([&] { subfolders = system().subfolders(Pathm); });
  bool found = false;
  for (const std::string& subfolder : subfolders) {
    if (purge_all(step, system(), subfolder)) found = true;
  }
  // Kept: one drawing in a subfolder, and those of the folder itself are left alone.
  if (!found) purge_all(step, system(), Pathm);
  return {};
}

}  // namespace velmar
