#include <windows.h>

#include "com/guid.h"
#include "com/registration/registration.h"
#include "com/server/boundary.h"
#include "com/server/class_factory.h"
#include "com/server/module.h"
#include "com/server/thread_watch.h"

// The functions that the DLL exports, by velmar_menu.def.

extern "C" HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID class_wanted, REFIID id,
                                                    void** found) {
  if (!found) return E_POINTER;
  *found = nullptr;
  if (!IsEqualCLSID(class_wanted, velmar::com::class_guid)) return CLASS_E_CLASSNOTAVAILABLE;
  return velmar::com::class_factory().QueryInterface(id, found);
}

/// The asking thread's own reference to the host is no reason to stay: with the last object gone,
/// the next one will find the host again.
extern "C" HRESULT STDAPICALLTYPE DllCanUnloadNow() {
  return velmar::com::guarded([] {
    if (velmar::com::ModuleUse::any()) return S_FALSE;
    velmar::com::stop_watching_thread();
    return velmar::com::any_thread_is_watched() ? S_FALSE : S_OK;
  });
}

extern "C" HRESULT STDAPICALLTYPE DllRegisterServer() {
  return velmar::com::guarded(
      [] { return velmar::com::register_class(velmar::com::module_path()); });
}

extern "C" HRESULT STDAPICALLTYPE DllUnregisterServer() {
  return velmar::com::guarded([] { return velmar::com::unregister_class(); });
}
