#pragma once

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// The layers of a drawing, layer "0" first, then in the order of its table. Add of a name that is
/// there gives that layer as it is.
class LayersObject final : public PlainObject {
 public:
  explicit LayersObject(DocumentPointer document) : document_(std::move(document)) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> values) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  std::vector<drawing::LayerId> live() const;
  Value layer(drawing::LayerId id) const;
  Value item(std::span<Value> values) const;
  Value add(std::span<Value> values);

  DocumentPointer document_;
};

}  // namespace velmar::embedded
