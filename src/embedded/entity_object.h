#pragma once

#include <memory>
#include <string>

#include "basic/failure.h"
#include "drawing/entity.h"
#include "embedded/document_state.h"
#include "host/object.h"

namespace velmar::embedded {

using basic::Value;
using host::Member;

/// Stands for an entity of a drawing, or for an attribute of a block reference. Cheap to make:
/// ObjectName, Layer, Handle and Color come from the record alone; the body is decoded when it is
/// first asked for, and again after the drawing was edited.
/// Fails: "Object was erased" for an erased entity; "On locked layer" for every put and changing
/// method on a locked layer (nothing changes then); 445 for what a kind that is kept whole without
/// being understood cannot do; 438 for other members.
class EntityObject final : public host::Object {
 public:
  EntityObject(DocumentPointer document, drawing::RecordId id)
      : document_(std::move(document)), id_(id) {}

  Value get(Member member) override;
  std::string_view text_at_hand(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> arguments) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

  /// Becomes another entity's object; for a walk.
  void stand_for(drawing::RecordId id) {
    id_ = id;
    decoded_.reset();
  }

  const DocumentPointer& document() const { return document_; }
  drawing::Drawing& drawing() const { return document_->drawing; }
  drawing::RecordId id() const { return id_; }
  const drawing::Record& record() const { return drawing().record(id_); }
  /// "MTEXT"
  std::string kind() const { return std::string(drawing().kind_name(id_)); }

  const std::string& layer_name() const;

  /// The decoded body; the reference holds until the drawing's next edit.
  const drawing::Body& body() const { return decoded(); }

 private:
  struct Decoded {
    drawing::Body body;
    std::uint64_t edition;
  };

  drawing::Body& decoded() const;
  void require_alive() const;
  void require_unlocked() const;
  Value get_other(Member member) const;
  std::optional<Value> call_common(Member member, std::span<Value> values);
  std::optional<Value> call_own(Member member, std::span<Value> values);
  basic::Failure unknown(Member member) const;

  DocumentPointer document_;
  drawing::RecordId id_;
  mutable std::unique_ptr<Decoded> decoded_;
};

std::shared_ptr<EntityObject> make_entity(DocumentPointer document, drawing::RecordId id);

}  // namespace velmar::embedded
