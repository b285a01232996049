#include "host/view.h"

#include "basic/failure.h"

namespace velmar::host {

Object& View::existing() const {
  if (!object_) throw basic::Failure(basic::object_not_set);
  return *object_;
}

Value View::get_value(Member member) const { return existing().get(member); }

void View::put_value(Member member, const Value& value) const { existing().put(member, value); }

Value View::call_packed(Member member, std::span<Value> arguments) const {
  return existing().call(member, arguments);
}

std::unique_ptr<Enumerator> View::enumerate() const { return existing().enumerate(); }

std::shared_ptr<Object> to_object(const Value& value) {
  Value copy = value;
  return taken_object(copy);
}

std::shared_ptr<Object> taken_object(Value& value) {
  if (value.is<basic::Empty>()) return nullptr;
  auto* reference = value.if_is<basic::Reference>();
  if (!reference) throw basic::Failure(basic::type_mismatch);
  return std::static_pointer_cast<Object>(std::move(*reference));  // all that a Reference can be
}

}  // namespace velmar::host
