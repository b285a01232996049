#include <string>
#include <vector>

#include "batch/folder_files.h"
#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

using host::Document;
using host::Layout;

std::vector<Layout> paper_layouts(const Document& document) {
  std::vector<Layout> layouts;
  for (const Layout& layout : document.Layouts()) {
    if (layout.Name() != Layout::model) layouts.push_back(layout);
  }
  return layouts;
}

void delete_layouts(const Document& document) {
  const std::vector<Layout> layouts = paper_layouts(document);
  if (!layouts.empty() && document.ActiveLayout().Name() != Layout::model) {
    document.ActiveLayout(document.Layouts().Item(Layout::model));
  }
  for (const Layout& layout : layouts) layout.Delete();
}

}  // namespace

Empty Velmar16::ZoomLayouts() {
  for (const Layout& layout : paper_layouts(active_document())) {
    active_document().ActiveLayout(layout);
    application().ZoomExtents();
  }
  active_document().Save();
  return {};
}

Empty Velmar16::DeleteLayouts(std::string& Pathm) {
  for (const std::string& file : files_of_type(system(), Pathm, "DWG")) {
    const Document document = application().Documents().Open(file);
    delete_layouts(document);
    document.Save();
    document.Close();
  }
  return {};
}

}  // namespace velmar
