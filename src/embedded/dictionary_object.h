#pragma once

#include <vector>

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// A dictionary as a collection of its objects, by position or by name; read only. The document's
/// Dictionaries is the root of all.
class DictionaryObject final : public PlainObject {
 public:
  /// An empty one for no record.
  DictionaryObject(DocumentPointer document, drawing::RecordId id)
      : document_(std::move(document)), id_(id) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> values) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  void require_alive() const;
  /// Those whose object is there.
  std::vector<drawing::DictionaryEntry> entries() const;
  std::string name() const;

  DocumentPointer document_;
  drawing::RecordId id_;
};

}  // namespace velmar::embedded
