#include "embedded/objects.h"

#include <algorithm>

#include "embedded/block_object.h"
#include "embedded/dictionary_object.h"
#include "embedded/document_members.h"
#include "embedded/entity_object.h"
#include "embedded/errors.h"
#include "embedded/layer_object.h"
#include "embedded/layout_object.h"
#include "embedded/linetypes_object.h"
#include "embedded/object_ids.h"
#include "embedded/record_members.h"
#include "embedded/text_style_object.h"

namespace velmar::embedded {
namespace {

using drawing::Kind;
using drawing::Record;
using drawing::RecordId;

class OtherObject final : public PlainObject {
 public:
  OtherObject(DocumentPointer document, RecordId id) : document_(std::move(document)), id_(id) {}

  Value get(Member member) override {
    require_open(*document_);
    if (auto found = record_member(document_, id_, member)) return std::move(*found);
    throw no_such_member(member);
  }
  Value call(Member member, std::span<Value> values) override {
    require_open(*document_);
    if (member == Member::GetExtensionDictionary) return extension_dictionary(document_, id_);
    return PlainObject::call(member, values);
  }

 private:
  DocumentPointer document_;
  RecordId id_;
};

std::optional<drawing::LayerId> layer_of(const drawing::Drawing& drawing, RecordId id) {
  const auto found = std::ranges::find(drawing.layers(), id, &drawing::Layer::record);
  if (found == drawing.layers().end()) return std::nullopt;
  return static_cast<drawing::LayerId>(found - drawing.layers().begin());
}

/// A block is its block record; in R12, which has none, its BLOCK.
std::optional<drawing::SpaceId> space_of(const drawing::Drawing& drawing, RecordId id) {
  const drawing::Handle handle = drawing.record(id).handle;
  const auto found = std::ranges::find_if(drawing.spaces(), [&](const drawing::Space& space) {
    return space.owner != 0 ? space.owner == handle : space.block == id;
  });
  if (found == drawing.spaces().end()) return std::nullopt;
  return static_cast<drawing::SpaceId>(found - drawing.spaces().begin());
}

}  // namespace

basic::Value make_object(const DocumentPointer& document, RecordId id) {
  require_open(*document);
  const drawing::Drawing& drawing = document->drawing;
  if (id == RecordId::none || index(id) >= drawing.size()) {
    throw failure(HostError::unknown_handle);
  }
  const Record& record = drawing.record(id);
  if (record.is(Record::erased)) throw failure(HostError::was_erased);
  if (record.kind == Kind::layer) {
    if (const auto layer = layer_of(drawing, id)) {
      return std::make_shared<LayerObject>(document, *layer);
    }
  }
  if (record.kind == Kind::dictionary) return std::make_shared<DictionaryObject>(document, id);
  if (record.kind == Kind::ltype) return std::make_shared<LinetypeObject>(document, id);
  if (record.kind == Kind::layout) {
    const auto layout = std::ranges::find(drawing.layouts(), id, &drawing::Layout::record);
    if (layout != drawing.layouts().end()) return std::make_shared<LayoutObject>(document, *layout);
  }
  if (record.kind == Kind::block || record.kind == Kind::block_record) {
    if (const auto space = space_of(drawing, id)) {
      return std::make_shared<BlockObject>(document, *space);
    }
  }
  if (record.kind == Kind::style) return std::make_shared<TextStyleObject>(document, id);
  const bool is_entity = record.layer != drawing::LayerId::none &&
                         (record.space != drawing::SpaceId::none || record.is(Record::part));
  if (is_entity) {
    drawing.prefetch(id);
    return make_entity(document, id);
  }
  return std::make_shared<OtherObject>(document, id);
}

}  // namespace velmar::embedded
