#pragma once

#include <ole2.h>

#include <memory>

#include "com/host_server/served_objects.h"

namespace velmar::com {

/// A walk over a host's collection for automation clients.
class ServedItems final : public IEnumVARIANT {
 public:
  /// Begins the walk; fails with a Failure where the object is no collection.
  ServedItems(std::shared_ptr<host::Object> collection, std::shared_ptr<ServedObjects> all);
  ServedItems(const ServedItems&) = delete;
  ServedItems& operator=(const ServedItems&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE Next(ULONG wanted, VARIANT* items, ULONG* fetched) override;
  HRESULT STDMETHODCALLTYPE Skip(ULONG count) override;
  HRESULT STDMETHODCALLTYPE Reset() override;
  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** copy) override;

 private:
  ~ServedItems() = default;

  std::shared_ptr<host::Object> collection_;
  std::shared_ptr<ServedObjects> all_;
  std::unique_ptr<host::Enumerator> items_;
  ULONG references_ = 1;
};

}  // namespace velmar::com
