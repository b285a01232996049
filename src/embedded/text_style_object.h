#pragma once

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// A text style. Its font and sizes are read and put; renaming and deleting it are not available.
class TextStyleObject final : public PlainObject {
 public:
  TextStyleObject(DocumentPointer document, drawing::RecordId id)
      : document_(std::move(document)), id_(id) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> values) override;

  const DocumentState& document() const { return *document_; }
  drawing::RecordId id() const { return id_; }

 private:
  DocumentPointer document_;
  drawing::RecordId id_;
};

}  // namespace velmar::embedded
