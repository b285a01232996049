#pragma once

#include <vector>

#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// A block definition, or model space, or the sheet of a layout: a collection of entities in
/// drawing order, to which entities are added at the end.
class BlockObject final : public PlainObject {
 public:
  BlockObject(DocumentPointer document, drawing::SpaceId id)
      : document_(std::move(document)), id_(id) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> values) override;
  /// Entities added since the walk began are not visited.
  std::unique_ptr<host::Enumerator> enumerate() override;

  const DocumentPointer& document() const { return document_; }
  drawing::SpaceId id() const { return id_; }

 private:
  const drawing::Space& space() const;
  void require_alive() const;
  /// The block record; in R12, which has none, the BLOCK.
  drawing::RecordId record() const;
  void put_path(const Value& value);
  const std::vector<drawing::RecordId>& live();
  std::optional<Value> own_property(Member member);
  Value item(std::span<Value> values);

  DocumentPointer document_;
  drawing::SpaceId id_;
  std::vector<drawing::RecordId> live_;  // as of that edition of the drawing
  std::optional<std::uint64_t> live_edition_;
};

}  // namespace velmar::embedded
