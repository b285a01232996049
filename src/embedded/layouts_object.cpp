#include "embedded/layouts_object.h"

#include <algorithm>

#include "basic/letter_case.h"
#include "embedded/layout_object.h"

namespace velmar::embedded {

using drawing::Drawing;
using drawing::Layout;

std::vector<Layout> LayoutRows::ids(const Drawing& drawing) {
  std::vector<Layout> layouts = drawing.layouts();
  std::ranges::stable_sort(layouts, {},
                           [](const Layout& layout) { return basic::upper(layout.name); });
  return layouts;
}

bool LayoutRows::exists(const Drawing& drawing, const Layout& layout) {
  return std::ranges::any_of(drawing.layouts(), [&](const Layout& present) {
    return present.record == layout.record && present.space == layout.space;
  });
}

Value LayoutRows::object(const DocumentPointer& document, const Layout& layout) {
  return std::make_shared<LayoutObject>(document, layout);
}

Layout LayoutRows::named(const Drawing& drawing, const std::string& name) {
  return require_layout(drawing, name);
}

Layout LayoutRows::add(Drawing& drawing, const std::string& name) {
  require_free_layout_name(drawing, name);
  return require_layout(drawing, drawing.add_layout(name));
}

}  // namespace velmar::embedded
