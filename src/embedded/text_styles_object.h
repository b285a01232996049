#pragma once

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// The text styles of a drawing in the order of its table. Add of a name that is there gives that
/// style as it is.
class TextStylesObject final : public PlainObject {
 public:
  explicit TextStylesObject(DocumentPointer document) : document_(std::move(document)) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> values) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  Value style(drawing::RecordId id) const;
  Value item(std::span<Value> values) const;
  Value add(std::span<Value> values);

  DocumentPointer document_;
};

}  // namespace velmar::embedded
