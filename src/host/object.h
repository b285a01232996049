#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "basic/value.h"
#include "host/member.h"

namespace velmar::host {

using basic::Value;

/// Steps through a collection: what was there when the walk began, less what was erased since.
class Enumerator {
 public:
  virtual ~Enumerator() = default;
  /// False at the end; otherwise `item` is the next one.
  virtual bool next(Value& item) = 0;
};

/// An object of a drawing host, reached by member name alone. This is all that a host adapter
/// writes. Every function fails with basic::Failure: the host's own error, or run-time error 438
/// for an unknown member.
class Object : public basic::Referenced {
 public:
  virtual Value get(Member member) = 0;
  /// A text property that the object has at hand, until the next change of the drawing; null where
  /// get() must be asked. Spares a walk, which asks two of every entity, a Value around each.
  virtual std::string_view text_at_hand(Member) { return {}; }
  virtual void put(Member member, const Value& value) = 0;
  /// Calls a method, or reads a property that takes arguments. Out-arguments are written back.
  virtual Value call(Member member, std::span<Value> arguments) = 0;
  /// A walk over a collection; error 438 where the object is none.
  virtual std::unique_ptr<Enumerator> enumerate() = 0;
};

}  // namespace velmar::host
