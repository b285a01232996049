#pragma once

#include <oaidl.h>
#include <ocidl.h>
#include <windows.h>

#include <memory>

#include "com/automation/com_ptr.h"
#include "com/server/module.h"
#include "component/velmar16.h"

namespace velmar::com {

class VelmarObject;

/// One function of a virtual table.
using Slot = void (*)();

/// What a pointer to the interface _Velmar16 points at: the virtual table, made from the method
/// table (virtual_table.h), and the object.
struct DualInterface {
  const Slot* slots;
  VelmarObject* object;
};

/// An object of the published class, as COM sees it. It belongs to the thread that made it.
class VelmarObject final : public IProvideClassInfo, public ISupportErrorInfo {
 public:
  explicit VelmarObject(std::shared_ptr<System> system);

  Velmar16& velmar() { return velmar_; }
  /// A reference to the object.
  ComPtr<IUnknown> identity();

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;

  // Of IDispatch, reached through the dual interface.
  HRESULT GetTypeInfoCount(UINT* count);
  HRESULT GetTypeInfo(UINT index, LCID locale, ITypeInfo** info);
  HRESULT GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids);
  HRESULT Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* given,
                 VARIANT* result, EXCEPINFO* exception, UINT* wrong_argument);

 private:
  ~VelmarObject() = default;  // Release ends it

  ModuleUse use_;
  LONG references_ = 1;
  DualInterface dual_;
  Velmar16 velmar_;
};

}  // namespace velmar::com
