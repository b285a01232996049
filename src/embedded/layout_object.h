#pragma once

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// A layout: "Model", or one sheet. Fails "Object was erased" once it was deleted. Refused:
/// changing or deleting "Model", a name that another one has or that no layout may have.
class LayoutObject final : public PlainObject {
 public:
  LayoutObject(DocumentPointer document, const drawing::Layout& layout)
      : document_(std::move(document)), record_(layout.record), sheet_(layout.space) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> values) override;

  bool exists() const { return find() != nullptr; }
  const DocumentPointer& document() const { return document_; }
  drawing::SpaceId sheet() const { return sheet_; }

 private:
  const drawing::Layout* find() const;
  const drawing::Layout& layout() const;
  bool is_model() const { return sheet_ == drawing::SpaceId::model; }

  DocumentPointer document_;
  drawing::RecordId record_;
  drawing::SpaceId sheet_;
};

/// By name without regard to case; key not found where there is none.
const drawing::Layout& require_layout(const drawing::Drawing& drawing, std::string_view name);
const drawing::Layout& require_layout(const drawing::Drawing& drawing, drawing::SpaceId sheet);
/// Refuses what no layout may be called (invalid input), and what one is called (duplicate key).
void require_free_layout_name(const drawing::Drawing& drawing, std::string_view name);

}  // namespace velmar::embedded
