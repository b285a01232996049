#include "com/server/class_factory.h"

#include <memory>

#include "com/server/boundary.h"
#include "com/server/module.h"
#include "com/server/surroundings.h"
#include "com/server/velmar_object.h"

namespace velmar::com {
namespace {

class VelmarFactory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override {
    if (!found) return E_POINTER;
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
    *found = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** made) override {
    if (!made) return E_POINTER;
    *made = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return guarded([&] {
      auto* const object = new VelmarObject(surroundings());
      const HRESULT result = object->QueryInterface(id, made);
      object->Release();
      return result;
    });
  }

  HRESULT STDMETHODCALLTYPE LockServer(BOOL locked) override {
    lock_module(locked != FALSE);
    return S_OK;
  }
};

}  // namespace

IClassFactory& class_factory() {
  static VelmarFactory factory;
  return factory;
}

}  // namespace velmar::com
