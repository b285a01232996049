#include "embedded/documents.h"

#include "basic/conversion.h"
#include "basic/strings.h"
#include "drawing/utf8_path.h"
#include "embedded/arguments.h"
#include "embedded/collection.h"
#include "embedded/document.h"
#include "embedded/document_name.h"
#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

Value open(Session& session, const Arguments& arguments) {
  const bool read_only = arguments.has(1) && basic::convert<bool>(arguments[1]);
  return session.open(drawing::utf8_path(arguments.text(0)), read_only);
}

Value add(Session& session, const Arguments& arguments) {
  if (!arguments.has(0)) return session.add(std::nullopt);
  return session.add(drawing::utf8_path(arguments.text(0)));
}

}  // namespace

Value Documents::get(Member member) {
  switch (member) {
    case Member::Application:
      return session_->application.lock();
    case Member::Count:
      return static_cast<std::int32_t>(session_->documents().size());
    default:
      throw no_such_member(member);
  }
}

Value Documents::call(Member member, std::span<Value> values) {
  switch (member) {
    case Member::Add:
      return add(*session_, Arguments(member, values, 0, 1));
    case Member::Close:
      close_all();
      return {};
    case Member::Item:
      return item(values);
    case Member::Open:
      return open(*session_, Arguments(member, values, 1, 3));
    default:
      return PlainObject::call(member, values);
  }
}

std::unique_ptr<host::Enumerator> Documents::enumerate() {
  return walk(session_->documents(),
              [](const std::shared_ptr<Document>& document) -> std::optional<Value> {
                if (document->state()->closed) return std::nullopt;
                return document;
              });
}

Value Documents::item(std::span<Value> values) const {
  const Arguments arguments(Member::Item, values, 1, 1);
  const auto& documents = session_->documents();
  if (const auto at = item_position(arguments, documents.size())) return documents[*at];
  const std::string name = arguments.text(0);
  for (const auto& document : documents) {
    if (basic::equal_ignoring_case(document_name(*document->state()), name) ||
        basic::equal_ignoring_case(document_full_name(*document->state()), name)) {
      return document;
    }
  }
  throw failure(HostError::key_not_found);
}

/// Saves what was changed. A drawing that cannot be saved stays open, and so do those after it.
void Documents::close_all() {
  while (!session_->documents().empty()) {
    const auto document = session_->documents().front();
    document->close(std::nullopt, std::nullopt);
  }
}

}  // namespace velmar::embedded
