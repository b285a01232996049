#pragma once

#include <memory>

#include "com/adapter/connection.h"
#include "host/object.h"

namespace velmar::com {

using basic::Value;
using host::Member;

/// An object of an automation host, called by name. For the thread that it came in on.
class DispatchObject : public host::Object {
 public:
  DispatchObject(ComPtr<IDispatch> object, std::shared_ptr<Connection> connection)
      : object_(std::move(object)), connection_(std::move(connection)) {}

  Value get(Member member) override;
  void put(Member member, const Value& value) override;
  Value call(Member member, std::span<Value> arguments) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

  /// Whether it can still be reached.
  bool answers();

  const ComPtr<IDispatch>& dispatch() const { return object_; }
  const Connection& connection() const { return *connection_; }

 private:
  struct Request;

  DISPID id_of(Member member);
  HRESULT try_invoke(Request& request);
  void require(HRESULT code, Request& request) const;
  void put(Member member, std::span<const Value> indexes_and_value, bool object);
  std::string step(Member member) const;

  ComPtr<IDispatch> object_;
  std::shared_ptr<Connection> connection_;
  std::shared_ptr<DispatchIds> ids_;  // null until the first call
};

}  // namespace velmar::com
