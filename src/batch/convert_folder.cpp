#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "basic/strings.h"
#include "batch/folder_files.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::ResumeNext;

/// The folder's files of that type; none where it cannot be read.
std::vector<std::string> files_in(ResumeNext& step, const System& system, const std::string& folder,
                                  std::string_view type) {
  std::vector<std::string> files;
  step([&] { files = files_of_type(system, folder, type); });
  return files;
}

void open(ResumeNext& step, const std::string& file) {
  step([&] { application().Documents().Open(file); });
  step([&] { application().ActiveDocument(active_document()); });
}

/// Kept: the last four characters go, whether or not they are the extension.
std::string without_extension(const std::string& file) {
  return basic::left(file, basic::len(file) - 4);
}

void show_and_close(ResumeNext& step) {
  step([&] { application().ZoomExtents(); });
  step([&] { active_document().Close(true); });
}

/// The exchange format that a host of that release is told to save in.
std::optional<std::int32_t> exchange_format(std::int16_t release) {
  constexpr std::int32_t dxf_2004 = 25;
  constexpr std::int32_t unset = 0;  // Kept: no host takes it, so its preference stays
  if (release >= 2004 && release <= 2009) return dxf_2004;
  if (release >= 2010 && release <= 2013) return unset;
  return std::nullopt;
}

host::OpenSave open_save() { return application().Preferences().OpenSave(); }

}  // namespace

Empty Velmar16::FolderDwgDxf(std::string& Pathm) {
  ResumeNext step;
  std::int32_t users_type = 0, type = 0;
  std::int16_t release = 0;
  step([&] { users_type = open_save().SaveAsType(); });
  step([&] {
    std::string caption = application().Caption();
    release = GetNs(caption);
  });

  for (const std::string& file : files_in(step, system(), Pathm, "DWG")) {
    open(step, file);
    if (const auto format = exchange_format(release)) {
      step([&] { open_save().SaveAsType(*format); });
    }
    step([&] { type = open_save().SaveAsType(); });
    step([&] { active_document().SaveAs(without_extension(file), type); });
    show_and_close(step);
    step([&] { open_save().SaveAsType(users_type); });
  }
  return {};
}

Empty Velmar16::FolderDxfDwg(std::string& Pathm) {
  ResumeNext step;
  for (const std::string& file : files_in(step, system(), Pathm, "DXF")) {
    open(step, file);
    step([&] { active_document().SaveAs(without_extension(file)); });
    show_and_close(step);
  }
  return {};
}

Empty Velmar16::FolderDGN(std::string& Pathm) {
  const auto design_files = files_of_type(system(), Pathm, "DGN");
  for (std::size_t i = 0; i < design_files.size(); ++i) {
    // Kept: without a line's end; the user chooses the file in the host.
    active_document().SendCommand("IMPORT");
    application().ZoomExtents();
  }
  return {};
}

}  // namespace velmar
