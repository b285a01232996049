#pragma once

#include <ole2.h>

#include <functional>
#include <map>
#include <string>

#include "com/automation/com_ptr.h"

namespace velmar::com {

/// An automation object for tests that answers as it is told, without type information.
class FakeDispatch final : public IDispatch {
 public:
  using Answer =
      std::function<HRESULT(WORD flags, DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* info)>;

  explicit FakeDispatch(std::map<std::wstring, Answer> answers) : answers_(std::move(answers)) {}
  virtual ~FakeDispatch() = default;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override {
    const bool known = id == __uuidof(IUnknown) || id == __uuidof(IDispatch);
    *found = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return ended ? RPC_E_DISCONNECTED : S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                          DISPID* ids) override {
    ++name_lookups;
    const auto found = answers_.find(names[0]);
    if (found == answers_.end()) return DISP_E_UNKNOWNNAME;
    ids[0] = static_cast<DISPID>(std::distance(answers_.begin(), found));
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* info, UINT*) override {
    if (id < 0) return DISP_E_MEMBERNOTFOUND;
    return std::next(answers_.begin(), id)->second(flags, *parameters, result, info);
  }

  int name_lookups = 0;
  bool ended = false;  // as of a process that is not there any more

 private:
  std::map<std::wstring, Answer> answers_;
  ULONG references_ = 1;
};

}  // namespace velmar::com
