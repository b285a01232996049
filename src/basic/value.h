#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace velmar::basic {

struct Empty {
  friend bool operator==(Empty, Empty) = default;
};
struct Null {
  friend bool operator==(Null, Null) = default;
};
/// An optional argument that the caller did not give.
struct LeftOut {
  friend bool operator==(LeftOut, LeftOut) = default;
};

/// What a Value can refer to. Objects of a host (host::Object) alone derive from it: whoever takes
/// a Reference out of a Value relies on that.
class Referenced {
 public:
  virtual ~Referenced() = default;
};
using Reference = std::shared_ptr<Referenced>;

class Value;
using Doubles = std::vector<double>;  // a point is three of them
using List = std::vector<Value>;      // objects, or mixed values

/// The variant of classic Basic and automation. Strings are UTF-8.
class Value {
 public:
  using Content = std::variant<Empty, Null, LeftOut, bool, std::int16_t, std::int32_t, double,
                               std::string, Doubles, Reference, List>;

  Value() = default;
  /// Exact types only: what a caller passes is what the value holds.
  template <class T>
  requires(std::same_as<T, Empty> || std::same_as<T, Null> || std::same_as<T, LeftOut> ||
           std::same_as<T, bool> || std::same_as<T, std::int16_t> ||
           std::same_as<T, std::int32_t> || std::same_as<T, double> ||
           std::same_as<T, std::string> || std::same_as<T, Doubles> || std::same_as<T, Reference> ||
           std::same_as<T, List>) Value(T content)
      : content_(std::move(content)) {}  // NOLINT(google-explicit-constructor)
  Value(std::string_view text)           // NOLINT(google-explicit-constructor)
      : content_(std::in_place_type<std::string>, text) {}
  Value(const char* text)  // NOLINT(google-explicit-constructor)
      : content_(std::in_place_type<std::string>, text) {}
  template <class T>
  requires std::derived_from<T, Referenced> Value(
      std::shared_ptr<T> object)  // NOLINT(google-explicit-constructor)
      : content_(Reference(std::move(object))) {}

  template <class T>
  bool is() const {
    return std::holds_alternative<T>(content_);
  }
  /// The content if it is a T, else null.
  template <class T>
  const T* if_is() const {
    return std::get_if<T>(&content_);
  }
  template <class T>
  T* if_is() {
    return std::get_if<T>(&content_);
  }
  const Content& content() const { return content_; }

  /// Same type and same content (not Basic's comparison, which is compare() in comparison.h).
  friend bool operator==(const Value&, const Value&);

 private:
  Content content_;
};

}  // namespace velmar::basic
