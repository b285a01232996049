#pragma once

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// A row of the DIMSTYLE table, by its name.
class DimStyleObject final : public PlainObject {
 public:
  DimStyleObject(DocumentPointer document, std::string name)
      : document_(std::move(document)), name_(std::move(name)) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;

  const DocumentState& document() const { return *document_; }
  const std::string& name() const { return name_; }

 private:
  DocumentPointer document_;
  std::string name_;
};

/// The dimension styles of a drawing in the order of its table. Add of a name that is there gives
/// that style; a new one is a copy of the first.
class DimStylesObject final : public PlainObject {
 public:
  explicit DimStylesObject(DocumentPointer document) : document_(std::move(document)) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> values) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  std::vector<std::string> names() const;
  Value style(std::string name) const;
  Value item(std::span<Value> values) const;
  Value add(std::span<Value> values);

  DocumentPointer document_;
};

}  // namespace velmar::embedded
