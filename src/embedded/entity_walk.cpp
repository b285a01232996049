#include "embedded/entity_walk.h"

#include "embedded/document_members.h"
#include "embedded/entity_object.h"

namespace velmar::embedded {

bool EntityWalk::next(basic::Value& item) {
  require_open(*document_);
  while (at_ < ids_.size()) {
    const drawing::RecordId id = ids_[at_++];
    if (document_->drawing.record(id).is(drawing::Record::erased)) continue;
    const auto* held = item.if_is<basic::Reference>();
    if (held && held->get() == latest_ && held->use_count() == 1) {
      latest_->stand_for(id);
    } else {
      auto made = make_entity(document_, id);
      latest_ = made.get();
      item = basic::Value(std::move(made));
    }
    return true;
  }
  return false;
}

}  // namespace velmar::embedded
