#include "embedded/plain_object.h"

#include "embedded/errors.h"

namespace velmar::embedded {

Value PlainObject::get(Member member) { throw no_such_member(member); }

void PlainObject::put(Member member, const Value&) { throw no_such_member(member); }

Value PlainObject::call(Member member, std::span<Value> arguments) {
  if (!arguments.empty()) throw no_such_member(member);
  return get(member);
}

std::unique_ptr<host::Enumerator> PlainObject::enumerate() {
  throw basic::Failure(basic::no_such_member);
}

}  // namespace velmar::embedded
