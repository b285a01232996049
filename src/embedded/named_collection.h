#pragma once

#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// A collection of what a drawing has under names: Count, Item by position or name, Add, and the
/// walk over what was there when it began, less what is gone by then.
///
/// Rows says of what. It has a type Id, and static functions: ids(drawing) in the order of the
/// collection; exists(drawing, id); object(document, id); named(drawing, name), which fails where
/// there is none; add(drawing, name).
template <class Rows>
class NamedCollection final : public PlainObject {
 public:
  explicit NamedCollection(DocumentPointer document) : document_(std::move(document)) {}

  Value get(Member member) override {
    require_open(*document_);
    if (member == Member::Count) return static_cast<std::int32_t>(ids().size());
    if (auto found = document_member(*document_, member)) return std::move(*found);
    throw no_such_member(member);
  }

  Value call(Member member, std::span<Value> values) override {
    require_open(*document_);
    if (member != Member::Item && member != Member::Add) return PlainObject::call(member, values);
    return translated([&] {
      const Arguments arguments(member, values, 1, 1);
      return Rows::object(document_, member == Member::Item ? item(arguments) : added(arguments));
    });
  }

  std::unique_ptr<host::Enumerator> enumerate() override {
    using Id = typename Rows::Id;
    require_open(*document_);
    return walk(ids(), [document = document_](const Id& id) -> std::optional<Value> {
      if (document->closed || !Rows::exists(document->drawing, id)) return std::nullopt;
      return Rows::object(document, id);
    });
  }

 private:
  auto ids() const { return Rows::ids(document_->drawing); }

  typename Rows::Id item(const Arguments& arguments) const {
    const auto present = ids();
    if (const auto at = item_position(arguments, present.size())) return present[*at];
    return Rows::named(document_->drawing, arguments.text(0));
  }

  typename Rows::Id added(const Arguments& arguments) {
    return Rows::add(document_->drawing, arguments.text(0));
  }

  DocumentPointer document_;
};

}  // namespace velmar::embedded
