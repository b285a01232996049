#include "embedded/layout_object.h"

#include <algorithm>

#include "basic/conversion.h"
#include "basic/strings.h"
#include "embedded/arguments.h"
#include "embedded/block_object.h"
#include "embedded/document_members.h"
#include "embedded/errors.h"
#include "embedded/names.h"
#include "embedded/record_members.h"

namespace velmar::embedded {

using drawing::Layout;
using drawing::SpaceId;

Value LayoutObject::get(Member member) {
  require_open(*document_);
  const Layout& own = layout();
  switch (member) {
    case Member::Name:
      return own.name;
    case Member::TabOrder:
      return own.tab;
    case Member::ModelType:
      return is_model();
    case Member::Block:
      if (sheet_ == SpaceId::none) throw failure(HostError::key_not_found);
      return std::make_shared<BlockObject>(document_, sheet_);
    case Member::ObjectName:
      return "AcDbLayout";
    default:
      break;
  }
  if (auto found = record_member(document_, record_, member)) return std::move(*found);
  throw no_such_member(member);
}

void LayoutObject::put(Member member, const Value& value) {
  require_open(*document_);
  const Layout& own = layout();
  if (member != Member::Name && member != Member::TabOrder) throw no_such_member(member);
  if (is_model()) throw failure(HostError::invalid_input, "The layout Model cannot be changed");
  translated([&] {
    if (member == Member::TabOrder) {
      const auto tab = basic::convert<std::int32_t>(value);
      const auto count = static_cast<std::int32_t>(document_->drawing.layouts().size());
      if (tab < 1 || tab >= count) throw failure(HostError::invalid_input);
      if (tab != own.tab) document_->drawing.move_tab(sheet_, tab);
      return;
    }
    const auto name = basic::convert<std::string>(value);
    if (!basic::equal_ignoring_case(own.name, name)) {
      require_free_layout_name(document_->drawing, name);
    }
    document_->drawing.rename_layout(sheet_, name);
  });
}

Value LayoutObject::call(Member member, std::span<Value> values) {
  require_open(*document_);
  if (member == Member::GetExtensionDictionary) {
    layout();
    return extension_dictionary(document_, record_);
  }
  if (member != Member::Delete && member != Member::Erase) return PlainObject::call(member, values);
  const Arguments no_arguments(member, values, 0, 0);
  layout();
  if (is_model()) throw failure(HostError::invalid_input, "The layout Model cannot be deleted");
  return translated([&]() -> Value {
    document_->drawing.erase_layout(sheet_);
    return {};
  });
}

const Layout* LayoutObject::find() const {
  const auto& layouts = document_->drawing.layouts();
  const auto found = std::ranges::find_if(layouts, [&](const Layout& layout) {
    return layout.record == record_ && layout.space == sheet_;
  });
  return found == layouts.end() ? nullptr : &*found;
}

const Layout& LayoutObject::layout() const {
  const Layout* own = find();
  if (!own) throw failure(HostError::was_erased);
  return *own;
}

const Layout& require_layout(const drawing::Drawing& drawing, std::string_view name) {
  for (const Layout& layout : drawing.layouts()) {
    if (basic::equal_ignoring_case(layout.name, name)) return layout;
  }
  throw failure(HostError::key_not_found);
}

const Layout& require_layout(const drawing::Drawing& drawing, SpaceId sheet) {
  for (const Layout& layout : drawing.layouts()) {
    if (layout.space == sheet) return layout;
  }
  throw failure(HostError::key_not_found);
}

void require_free_layout_name(const drawing::Drawing& drawing, std::string_view name) {
  require_valid_name(name);
  const bool is_taken = std::ranges::any_of(drawing.layouts(), [&](const Layout& layout) {
    return basic::equal_ignoring_case(layout.name, name);
  });
  if (is_taken) throw failure(HostError::duplicate_key);
}

}  // namespace velmar::embedded
