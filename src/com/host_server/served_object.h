#pragma once

#include <ole2.h>

#include <memory>
#include <span>

#include "com/host_server/served_objects.h"

namespace velmar::com {

/// Any host object as an automation object without type information.
class ServedObject final : public IDispatch, public IExternalConnection {
 public:
  /// Answers QueryInterface for this with the class itself.
  static const IID own_id;

  ServedObject(std::shared_ptr<host::Object> object, std::shared_ptr<ServedObjects> all);
  ServedObject(const ServedObject&) = delete;
  ServedObject& operator=(const ServedObject&) = delete;

  const std::shared_ptr<host::Object>& object() const { return object_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo** information) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception,
                                   UINT* wrong_argument) override;

  DWORD STDMETHODCALLTYPE AddConnection(DWORD kind, DWORD) override;
  DWORD STDMETHODCALLTYPE ReleaseConnection(DWORD kind, DWORD, BOOL) override;

 private:
  ~ServedObject();

  Variant answer(host::Member member, WORD flags, DISPPARAMS& parameters);
  basic::Value answer(host::Member member, WORD flags, std::span<basic::Value> arguments);
  Variant items();

  std::shared_ptr<host::Object> object_;
  std::shared_ptr<ServedObjects> all_;
  ULONG references_ = 1;
};

}  // namespace velmar::com
