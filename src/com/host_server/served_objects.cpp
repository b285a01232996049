#include "com/host_server/served_objects.h"

#include "basic/failure.h"
#include "com/host_server/served_object.h"

namespace velmar::com {

ComPtr<IDispatch> ServedObjects::serve(const std::shared_ptr<host::Object>& object) {
  const auto found = served_.find(object.get());
  if (found != served_.end()) return ComPtr<IDispatch>::sharing(found->second);
  return ComPtr<IDispatch>::taking(new ServedObject(object, shared_from_this()));
}

basic::Reference ServedObjects::inward(IDispatch& object) const {
  void* found = nullptr;
  if (FAILED(object.QueryInterface(ServedObject::own_id, &found))) {
    throw basic::Failure(basic::type_mismatch, "Velmar",
                         "Type mismatch: an object of this host was expected, found another one");
  }
  auto* served = static_cast<ServedObject*>(found);
  const auto kept_alive = ComPtr<IDispatch>::taking(served);
  return served->object();
}

ComPtr<IDispatch> ServedObjects::outward(const basic::Reference& object) const {
  // All that a Reference can be.
  const auto served = std::static_pointer_cast<host::Object>(object);
  return std::const_pointer_cast<ServedObjects>(shared_from_this())->serve(served);
}

}  // namespace velmar::com
