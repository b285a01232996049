#pragma once

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// The rows of the linetype table. Add makes a continuous one of the name, or gives the one that is
/// there; Load is not available: there is no linetype file.
class LinetypesObject final : public PlainObject {
 public:
  explicit LinetypesObject(DocumentPointer document) : document_(std::move(document)) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> values) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  DocumentPointer document_;
};

/// One linetype: Name and Description.
class LinetypeObject final : public PlainObject {
 public:
  LinetypeObject(DocumentPointer document, drawing::RecordId id)
      : document_(std::move(document)), id_(id) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> values) override;

  const DocumentState& document() const { return *document_; }

 private:
  void require_alive() const;

  DocumentPointer document_;
  drawing::RecordId id_;
};

}  // namespace velmar::embedded
