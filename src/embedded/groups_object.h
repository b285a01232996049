#pragma once

#include <vector>

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// The groups of a drawing, in the order of their dictionary; read only.
class GroupsObject final : public PlainObject {
 public:
  explicit GroupsObject(DocumentPointer document) : document_(std::move(document)) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> values) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  DocumentPointer document_;
};

/// A group: a collection of the entities that are its members, in its order.
class GroupObject final : public PlainObject {
 public:
  GroupObject(DocumentPointer document, drawing::RecordId id, std::string name)
      : document_(std::move(document)), id_(id), name_(std::move(name)) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> values) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  std::vector<drawing::RecordId> members() const;

  DocumentPointer document_;
  drawing::RecordId id_;
  std::string name_;
};

}  // namespace velmar::embedded
