#include "com/server/thread_watch.h"

#include <objbase.h>
#include <objidl.h>
#include <windows.h>

#include <atomic>

#include "component/session.h"

namespace velmar::com {
namespace {

std::atomic<int> watched = 0;

// Trivial on purpose: a thread-local object with a destructor would keep the DLL loaded for ever.
struct Registration {
  bool active;
  ULARGE_INTEGER cookie;
};
thread_local Registration registration;

/// Told by COM about the thread's initialisations. One for all threads: it has no state.
class LeavingCom final : public IInitializeSpy {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IInitializeSpy);
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE PreInitialize(DWORD, DWORD) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE PostInitialize(HRESULT result, DWORD, DWORD) override { return result; }
  HRESULT STDMETHODCALLTYPE PreUninitialize(DWORD initialisations) override {
    if (initialisations == 1) stop_watching_thread();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE PostUninitialize(DWORD) override { return S_OK; }
};

LeavingCom leaving_com;

}  // namespace

void watch_thread() {
  if (registration.active) return;
  registration.active = SUCCEEDED(CoRegisterInitializeSpy(&leaving_com, &registration.cookie));
  if (registration.active) ++watched;
}

void stop_watching_thread() {
  release_host_application();
  if (!registration.active) return;
  registration.active = false;
  CoRevokeInitializeSpy(registration.cookie);
  --watched;
}

bool any_thread_is_watched() { return watched != 0; }

}  // namespace velmar::com
