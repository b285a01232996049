#pragma once

#include "host/object.h"

namespace velmar::embedded {

using basic::Value;
using host::Member;

/// An object whose members are all unknown (438) but those that a class adds. A property may also
/// be read by a call without arguments, as late-bound callers do.
class PlainObject : public host::Object {
 public:
  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> arguments) override;
  std::unique_ptr<host::Enumerator> enumerate() override;
};

}  // namespace velmar::embedded
