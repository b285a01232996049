#pragma once

#include <memory>
#include <vector>

#include "embedded/document_state.h"
#include "host/object.h"

namespace velmar::embedded {

class EntityObject;

/// A walk over these entities, less what is erased by the time they are reached. A walk over a
/// drawing passes a million objects that nobody keeps: one that the caller has let go of is used
/// again for the next entity.
class EntityWalk final : public host::Enumerator {
 public:
  EntityWalk(DocumentPointer document, std::vector<drawing::RecordId> ids)
      : document_(std::move(document)), ids_(std::move(ids)) {}

  bool next(basic::Value& item) override;

 private:
  DocumentPointer document_;
  std::vector<drawing::RecordId> ids_;
  std::size_t at_ = 0;
  EntityObject* latest_ = nullptr;
};

}  // namespace velmar::embedded
