#include "com/server/velmar_object.h"

#include <algorithm>
#include <utility>

#include "com/guid.h"
#include "com/server/boundary.h"
#include "com/server/dispatch.h"
#include "com/server/type_library.h"
#include "com/server/virtual_table.h"

namespace velmar::com {

VelmarObject::VelmarObject(std::shared_ptr<System> system)
    : dual_{virtual_table(), this}, velmar_(std::move(system)) {}

ComPtr<IUnknown> VelmarObject::identity() {
  AddRef();
  return ComPtr<IUnknown>::taking(static_cast<IProvideClassInfo*>(this));
}

HRESULT VelmarObject::QueryInterface(REFIID id, void** found) {
  if (!found) return E_POINTER;
  if (IsEqualIID(id, IID_IProvideClassInfo)) {
    *found = static_cast<IProvideClassInfo*>(this);
  } else if (IsEqualIID(id, IID_ISupportErrorInfo)) {
    *found = static_cast<ISupportErrorInfo*>(this);
  } else if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
             IsEqualIID(id, interface_guid)) {
    *found = &dual_;
  } else {
    *found = nullptr;
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG VelmarObject::AddRef() { return static_cast<ULONG>(InterlockedIncrement(&references_)); }

ULONG VelmarObject::Release() {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

HRESULT VelmarObject::GetClassInfo(ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  return guarded([&] { return own_type_info(class_guid, info); });
}

HRESULT VelmarObject::InterfaceSupportsErrorInfo(REFIID id) {
  return IsEqualIID(id, interface_guid) || IsEqualIID(id, IID_IDispatch) ? S_OK : S_FALSE;
}

HRESULT VelmarObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT VelmarObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  return guarded([&] { return own_type_info(interface_guid, info); });
}

HRESULT VelmarObject::GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                    DISPID* ids) {
  if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (!names || !ids || count == 0) return E_INVALIDARG;
  return guarded([&] { return ids_of_names({names, count}, {ids, count}); });
}

HRESULT VelmarObject::Invoke(DISPID id, REFIID reserved, LCID, WORD flags, DISPPARAMS* given,
                             VARIANT* result, EXCEPINFO* exception, UINT* wrong_argument) {
  if (!IsEqualIID(reserved, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (!given) return E_INVALIDARG;
  if (!(flags & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
  return guarded([&] {
    return call_by_id(*this, id, *given, {result, exception, wrong_argument});
  });
}

}  // namespace velmar::com
