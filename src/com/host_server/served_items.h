#pragma once

#include <ole2.h>

#include <memory>
#include <optional>

#include "basic/failure.h"
#include "com/host_server/served_objects.h"

namespace velmar::com {

/// A walk over a host's collection for automation clients.
class ServedItems final : public IEnumVARIANT, public ISupportErrorInfo {
 public:
  /// Begins the walk; fails with a Failure where the object is no collection.
  ServedItems(std::shared_ptr<host::Object> collection, std::shared_ptr<ServedObjects> all);
  ServedItems(const ServedItems&) = delete;
  ServedItems& operator=(const ServedItems&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;

  /// A failure behind the first of the items leaves those before it as a short block, and comes
  /// with the next call. Its texts are the thread's error information.
  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* items, ULONG* fetched) override;
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
  HRESULT STDMETHODCALLTYPE Reset() override;
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;

 private:
  ~ServedItems() = default;

  std::shared_ptr<host::Object> collection_;
  std::shared_ptr<ServedObjects> all_;
  std::unique_ptr<host::Enumerator> items_;
  std::optional<basic::Failure> late_failure_;
  ULONG references_ = 1;
};

}  // namespace velmar::com
