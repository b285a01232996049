#include "com/host_program/published_application.h"

#include <utility>

#include "com/automation/failure_crossing.h"

namespace velmar::com {

PublishedApplication::PublishedApplication(const CLSID& class_id, DWORD context,
                                           ComPtr<IDispatch> application)
    : application_(std::move(application)) {
  const HRESULT published =
      CoRegisterClassObject(class_id, this, context, REGCLS_MULTIPLEUSE, &class_);
  if (FAILED(published)) throw to_failure(published, "Publishing the class");
  // Weak: being found is no reason to stay. A host that is found already stays the one.
  if (context & CLSCTX_LOCAL_SERVER) {
    RegisterActiveObject(application_.get(), class_id, ACTIVEOBJECT_WEAK, &running_);
  }
}

PublishedApplication::~PublishedApplication() {
  if (running_) RevokeActiveObject(running_, nullptr);
  CoRevokeClassObject(class_);
}

HRESULT PublishedApplication::QueryInterface(REFIID id, void** found) {
  if (!found) return E_POINTER;
  const bool known = id == __uuidof(IUnknown) || id == __uuidof(IClassFactory);
  *found = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT PublishedApplication::CreateInstance(IUnknown* outer, REFIID id, void** found) {
  if (!found) return E_POINTER;
  *found = nullptr;
  if (outer) return CLASS_E_NOAGGREGATION;
  return application_->QueryInterface(id, found);
}

HRESULT PublishedApplication::LockServer(BOOL lock) {
  if (lock)
    ++locks_;
  else if (locks_ > 0)
    --locks_;
  return S_OK;
}

}  // namespace velmar::com
