#include "embedded/document_members.h"

#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

basic::Value live(const std::weak_ptr<basic::Referenced>& object) {
  basic::Reference reference = object.lock();
  if (!reference) throw failure(HostError::disconnected);
  return reference;
}

}  // namespace

void require_open(const DocumentState& document) {
  if (document.closed) throw failure(HostError::disconnected);
}

std::optional<basic::Value> document_member(const DocumentState& document, host::Member member) {
  switch (member) {
    case host::Member::Application:
      return live(document.application);
    case host::Member::Document:
    case host::Member::Database:
      return live(document.document);
    default:
      return std::nullopt;
  }
}

}  // namespace velmar::embedded
