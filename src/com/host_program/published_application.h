#pragma once

#include <ole2.h>

#include <memory>

#include "com/host_server/served_objects.h"

namespace velmar::com {

/// The one application object as clients find it: through its class, and in the table of running
/// objects. It is withdrawn when this ends.
class PublishedApplication : public IClassFactory {
 public:
  /// `context` says to whom: other processes, or this one. Fails with a Failure.
  PublishedApplication(const CLSID& class_id, DWORD context, ComPtr<IDispatch> application);
  PublishedApplication(const PublishedApplication&) = delete;
  PublishedApplication& operator=(const PublishedApplication&) = delete;
  virtual ~PublishedApplication();

  /// Locks that clients hold on the server.
  unsigned locks() const { return locks_; }

  // It lives as long as its owner says.
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** found) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override;

 private:
  ComPtr<IDispatch> application_;
  DWORD class_ = 0, running_ = 0;
  unsigned locks_ = 0;
};

}  // namespace velmar::com
