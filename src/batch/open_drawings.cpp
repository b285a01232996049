#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "basic/strings.h"
#include "batch/special_folder.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::Document;

/// Keeps the drawings that were open: each as folder, separator, name and an asterisk, in one line.
std::string list_file(const System& system) {
  constexpr std::int32_t application_data = 26;
  return special_folder(system, application_data) + system.path_separator() + "CurrentDrawings.Txt";
}

/// The folder of each open drawing; nothing where it cannot be read.
std::vector<std::optional<std::string>> open_folders(host::ResumeNext& step) {
  std::int32_t count = 0;
  step([&] { count = application().Documents().Count(); });
  std::vector<std::optional<std::string>> folders(static_cast<std::size_t>(count));
  for (std::int32_t i = 0; i < count; ++i) {
    step([&] { folders[static_cast<std::size_t>(i)] = application().Documents().Item(i).Path(); });
  }
  return folders;
}

}  // namespace

Empty Velmar16::SaveAllDrawings() {
  std::vector<Document> open;  // closing one must not disturb the walk
  for (const Document& document : application().Documents()) open.push_back(document);
  for (const Document& document : open) {
    if (document.FullName().empty()) continue;
    document.Save();
    document.Close(false);
  }
  return {};
}

Empty Velmar16::SaveAllCurrentDrawings() {
  std::string list;
  const std::int32_t count = application().Documents().Count();
  for (std::int32_t i = 0; i < count; ++i) {
    const Document document = application().Documents().Item(i);
    const std::string folder = document.Path();
    if (basic::contains_ignoring_case(folder, "Windows")) continue;
    // Kept: each in front of those before, so that the first one will be opened last.
    list.insert(0, folder + system().path_separator() + document.Name() + "*");
  }
  system().write_text(list_file(system()), list + "\r\n");
  return {};
}

Empty Velmar16::LoadAllCurrentDrawings() {
  host::ResumeNext step;
  std::string list;
  step([&] { list = system().read_text(list_file(system())); });

  const std::vector<std::string> pieces = basic::split(list, "*");
  for (std::size_t i = 0; i + 1 < pieces.size(); ++i) {  // the last piece is the line's end
    step([&] { application().Documents().Open(pieces[i]); });
  }

  const auto folders = open_folders(step);
  for (std::size_t i = 0; i < folders.size(); ++i) {
    bool comes_again = false;
    for (std::size_t j = i + 1; j < folders.size(); ++j) {
      if (folders[i] && folders[i] == folders[j]) comes_again = true;
    }
    if (folders[i] && !comes_again) step([&] { system().browse(*folders[i]); });
  }
  return {};
}

}  // namespace velmar
