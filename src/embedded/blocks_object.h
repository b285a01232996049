#pragma once

#include <vector>

#include "embedded/arguments.h"
#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// The block table: model space, the sheets and the block definitions.
class BlocksObject final : public PlainObject {
 public:
  explicit BlocksObject(DocumentPointer document) : document_(std::move(document)) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> values) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  std::vector<drawing::SpaceId> live() const;
  Value add(const Arguments& arguments);

  DocumentPointer document_;
};

}  // namespace velmar::embedded
