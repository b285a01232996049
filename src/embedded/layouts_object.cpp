#include "embedded/layouts_object.h"

#include <algorithm>

#include "basic/letter_case.h"
#include "basic/strings.h"
#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/layout_object.h"
#include "embedded/names.h"

namespace velmar::embedded {
namespace {

using drawing::Layout;

std::vector<Layout> sorted(const drawing::Drawing& drawing) {
  std::vector<Layout> layouts = drawing.layouts();
  std::ranges::stable_sort(layouts, {},
                           [](const Layout& layout) { return basic::upper(layout.name); });
  return layouts;
}

}  // namespace

Value LayoutsObject::get(Member member) {
  require_open(*document_);
  if (member == Member::Count) {
    return static_cast<std::int32_t>(document_->drawing.layouts().size());
  }
  if (auto found = document_member(*document_, member)) return std::move(*found);
  throw no_such_member(member);
}

Value LayoutsObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  return translated([&]() -> Value {
    if (member == Member::Item) return item(values);
    if (member == Member::Add) return add(values);
    return PlainObject::call(member, values);
  });
}

std::unique_ptr<host::Enumerator> LayoutsObject::enumerate() {
  require_open(*document_);
  return walk(sorted(document_->drawing),
              [document = document_](const Layout& layout) -> std::optional<Value> {
                auto object = std::make_shared<LayoutObject>(document, layout);
                if (document->closed || !object->exists()) return std::nullopt;
                return std::optional<Value>(std::in_place, std::move(object));
              });
}

Value LayoutsObject::item(std::span<Value> values) const {
  const Arguments arguments(Member::Item, values, 1, 1);
  const std::vector<Layout> layouts = sorted(document_->drawing);
  if (const auto position = item_position(arguments, layouts.size())) {
    return std::make_shared<LayoutObject>(document_, layouts[*position]);
  }
  return std::make_shared<LayoutObject>(document_,
                                        require_layout(document_->drawing, arguments.text(0)));
}

Value LayoutsObject::add(std::span<Value> values) {
  const std::string name = Arguments(Member::Add, values, 1, 1).text(0);
  require_free_layout_name(document_->drawing, name);
  const drawing::SpaceId sheet = document_->drawing.add_layout(name);
  return std::make_shared<LayoutObject>(document_, require_layout(document_->drawing, sheet));
}

}  // namespace velmar::embedded
