#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "basic/conversion.h"
#include "basic/failure.h"
#include "basic/value.h"
#include "host/at_exit.h"
#include "host/object.h"
#include "host/point.h"

namespace velmar::host {

/// A host object seen through names and types; copying a view copies the reference, not the object.
/// Every use of an empty view fails with error 91.
class View {
 public:
  View() = default;
  explicit View(std::shared_ptr<Object> object) : object_(std::move(object)) {}

  const std::shared_ptr<Object>& object() const& { return object_; }
  std::shared_ptr<Object> object() && { return std::move(object_); }

  /// The property, converted as Basic would; error 13 when it cannot be.
  template <class T>
  T get(Member member) const;
  /// What `use` makes of the text of the property, which it sees without a copy where the host has
  /// it at hand.
  template <class Use>
  auto with_text(Member member, Use use) const;
  template <class T>
  void put(Member member, const T& value) const;
  /// Calls a method. A `Value&` argument receives what the host wrote into it, also when the call
  /// fails.
  template <class... Arguments>
  Value call(Member member, Arguments&&... arguments) const;
  std::unique_ptr<Enumerator> enumerate() const;

 private:
  Object& existing() const;
  Value get_value(Member member) const;
  void put_value(Member member, const Value& value) const;
  Value call_packed(Member member, std::span<Value> arguments) const;

  std::shared_ptr<Object> object_;
};

/// The object that a value refers to; null for an empty value, error 13 for anything else.
std::shared_ptr<Object> to_object(const Value& value);
/// The same, taken out of the value.
std::shared_ptr<Object> taken_object(Value& value);

template <class T>
requires std::constructible_from<Value, const T&> Value to_value(const T& content) {
  return Value(content);
}
inline Value to_value(const View& view) { return Value(view.object()); }

/// The value as a view, a point or a plain type.
template <class T>
T from_value(const Value& value) {
  if constexpr (std::derived_from<T, View>) {
    return T(to_object(value));
  } else if constexpr (std::same_as<T, Point>) {
    return to_point(value);
  } else {
    return basic::convert<T>(value);
  }
}

/// The items of a list, each as a T; error 13 for what is no list.
template <class T>
std::vector<T> from_list(const Value& value) {
  const auto* list = value.if_is<basic::List>();
  if (!list) throw basic::Failure(basic::type_mismatch);
  std::vector<T> items;
  for (const Value& item : *list) items.push_back(from_value<T>(item));
  return items;
}

template <class Use>
auto View::with_text(Member member, Use use) const {
  const std::string_view at_hand = existing().text_at_hand(member);
  if (at_hand.data()) return use(at_hand);
  const Value value = get_value(member);
  if (const auto* text = value.if_is<std::string>()) return use(std::string_view(*text));
  return use(std::string_view(basic::convert<std::string>(value)));
}

template <class T>
T View::get(Member member) const {
  if constexpr (std::same_as<T, std::string>) {
    const std::string_view at_hand = existing().text_at_hand(member);
    if (at_hand.data()) return T(at_hand);
    Value value = get_value(member);
    if (auto* text = value.if_is<std::string>()) return std::move(*text);
    return basic::convert<T>(value);
  } else {
    return from_value<T>(get_value(member));
  }
}

template <class T>
void View::put(Member member, const T& value) const {
  put_value(member, to_value(value));
}

namespace detail {

template <class Argument>
void write_back(Argument&& argument, Value& written) {
  if constexpr (std::same_as<Argument, Value&>) argument = std::move(written);
}

}  // namespace detail

template <class... Arguments>
Value View::call(Member member, Arguments&&... arguments) const {
  std::array<Value, sizeof...(Arguments)> packed{to_value(arguments)...};
  const AtExit write_back([&] {
    [[maybe_unused]] std::size_t i = 0;
    (detail::write_back<Arguments>(std::forward<Arguments>(arguments), packed[i++]), ...);
  });
  return call_packed(member, packed);
}

}  // namespace velmar::host
