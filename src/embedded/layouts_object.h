#pragma once

#include <vector>

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// The layouts of a drawing, "Model" among them, in the alphabet's order. Files without layouts
/// have "Model" and "Layout1".
class LayoutsObject final : public PlainObject {
 public:
  explicit LayoutsObject(DocumentPointer document) : document_(std::move(document)) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> values) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  Value item(std::span<Value> values) const;
  Value add(std::span<Value> values);

  DocumentPointer document_;
};

}  // namespace velmar::embedded
