#include "host/watched_object.h"

#include <utility>

#include "host/at_exit.h"

namespace velmar::host {
namespace {

using Watcher = std::shared_ptr<Watch>;

class WatchedObject : public Object {
 public:
  WatchedObject(std::shared_ptr<Object> object, Watcher watch)
      : object_(std::move(object)), watch_(std::move(watch)) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> arguments) override;
  std::unique_ptr<Enumerator> enumerate() override;

  const std::shared_ptr<Object>& object() const { return object_; }
  const Watcher& watch() const { return watch_; }

 private:
  std::shared_ptr<Object> object_;
  Watcher watch_;
};

/// The value with every object in it, also inside lists, replaced by change(object).
template <class Change>
Value with_objects(Value value, const Change& change) {
  if (const auto* reference = value.if_is<basic::Reference>()) {
    const auto object = std::dynamic_pointer_cast<Object>(*reference);
    return object ? Value(change(object)) : value;
  }
  if (auto* list = value.if_is<basic::List>()) {
    for (Value& item : *list) item = with_objects(std::move(item), change);
  }
  return value;
}

Value wrapped(Value value, const Watcher& watch) {
  return with_objects(std::move(value), [&](const std::shared_ptr<Object>& object) {
    return watched(object, watch);
  });
}

Value unwrapped(Value value, const Watcher& watch) {
  return with_objects(std::move(value), [&](const std::shared_ptr<Object>& object) {
    const auto ours = std::dynamic_pointer_cast<WatchedObject>(object);
    return ours && ours->watch() == watch ? ours->object() : object;
  });
}

class WatchedEnumerator : public Enumerator {
 public:
  WatchedEnumerator(std::unique_ptr<Enumerator> items, Watcher watch)
      : items_(std::move(items)), watch_(std::move(watch)) {}

  bool next(Value& item) override {
    watch_->before(Watch::Step::next);
    if (!items_->next(item)) return false;
    item = wrapped(std::move(item), watch_);
    return true;
  }

 private:
  std::unique_ptr<Enumerator> items_;
  Watcher watch_;
};

Value WatchedObject::get(Member member) {
  watch_->before(Watch::Step::get);
  return wrapped(object_->get(member), watch_);
}

void WatchedObject::put(Member member, const Value& value) {
  watch_->before(Watch::Step::put);
  object_->put(member, unwrapped(value, watch_));
}

Value WatchedObject::call(Member member, std::span<Value> arguments) {
  watch_->before(Watch::Step::call);
  for (Value& argument : arguments) argument = unwrapped(std::move(argument), watch_);
  const AtExit wrap_out_arguments([&] {
    for (Value& argument : arguments) argument = wrapped(std::move(argument), watch_);
  });
  return wrapped(object_->call(member, arguments), watch_);
}

std::unique_ptr<Enumerator> WatchedObject::enumerate() {
  watch_->before(Watch::Step::enumerate);
  return std::make_unique<WatchedEnumerator>(object_->enumerate(), watch_);
}

}  // namespace

std::shared_ptr<Object> watched(std::shared_ptr<Object> object, std::shared_ptr<Watch> watch) {
  return std::make_shared<WatchedObject>(std::move(object), std::move(watch));
}

}  // namespace velmar::host
