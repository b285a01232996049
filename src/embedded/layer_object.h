#pragma once

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// A layer. Fails "Object was erased" once it was deleted. Refused: renaming layer "0" or to a name
/// that another layer has or that no layer may have, colours but 1 to 255, freezing the current
/// layer, a linetype that is not loaded.
class LayerObject final : public PlainObject {
 public:
  LayerObject(DocumentPointer document, drawing::LayerId id)
      : document_(std::move(document)), id_(id) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> values) override;

  const DocumentState& document() const { return *document_; }
  drawing::LayerId id() const { return id_; }
  const drawing::Layer& row() const { return document_->drawing.layer(id_); }
  void write(const drawing::LayerRow& row) { document_->drawing.write_layer(id_, row); }

 private:
  void require_alive() const;
  void erase();

  DocumentPointer document_;
  drawing::LayerId id_;
};

}  // namespace velmar::embedded
