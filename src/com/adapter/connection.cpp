#include "com/adapter/connection.h"

#include "basic/failure.h"
#include "com/adapter/dispatch_object.h"

namespace velmar::com {

basic::Reference Connection::inward(IDispatch& object) const {
  // Objects of the host change what the connection knows, whichever way they came in.
  const auto connection = std::const_pointer_cast<Connection>(shared_from_this());
  return std::make_shared<DispatchObject>(ComPtr<IDispatch>::sharing(&object), connection);
}

ComPtr<IDispatch> Connection::outward(const basic::Reference& object) const {
  const auto ours = std::dynamic_pointer_cast<DispatchObject>(object);
  if (!ours) {
    throw basic::Failure(basic::type_mismatch, "VelmarMenu",
                         "Type mismatch: an object of the host was expected, found another one");
  }
  return ours->dispatch();
}

bool Connection::is_busy(HRESULT code) {
  return code == RPC_E_CALL_REJECTED || code == RPC_E_SERVERCALL_RETRYLATER;
}

bool Connection::is_gone(HRESULT code) {
  return code == RPC_E_DISCONNECTED || code == CO_E_OBJNOTCONNECTED || code == RPC_E_SERVER_DIED ||
         code == RPC_E_SERVER_DIED_DNE ||
         code == HRESULT_FROM_WIN32(static_cast<unsigned long>(RPC_S_SERVER_UNAVAILABLE)) ||
         code == HRESULT_FROM_WIN32(static_cast<unsigned long>(RPC_S_CALL_FAILED));
}

void Connection::wait(unsigned milliseconds) { Sleep(milliseconds); }

}  // namespace velmar::com
