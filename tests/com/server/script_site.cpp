#include "com/server/script_site.h"

#include <cstdio>
#include <cwchar>

#include "com/automation/bstr.h"
#include "com/automation/failure_crossing.h"
#include "com/automation/variant.h"

namespace velmar::com {

HRESULT EchoingHost::QueryInterface(REFIID id, void** found) {
  const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch);
  *found = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT EchoingHost::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT EchoingHost::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  const bool known = count == 1 && _wcsicmp(names[0], L"Echo") == 0;
  ids[0] = known ? 1 : DISPID_UNKNOWN;
  return known ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT EchoingHost::Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* given, VARIANT*, EXCEPINFO*,
                            UINT*) {
  if (given->cArgs != 1) return DISP_E_BADPARAMCOUNT;
  Variant text;
  const HRESULT result = VariantChangeType(&text.fresh(), &given->rgvarg[0], 0, VT_BSTR);
  if (SUCCEEDED(result)) std::puts(to_utf8(text.get().bstrVal).c_str());
  return result;
}

HRESULT ScriptSite::QueryInterface(REFIID id, void** found) {
  const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IActiveScriptSite);
  *found = known ? this : nullptr;
  return known ? S_OK : E_NOINTERFACE;
}

HRESULT ScriptSite::GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** item, ITypeInfo** info) {
  if (info) *info = nullptr;
  if (std::wcscmp(name, L"Host") != 0) return TYPE_E_ELEMENTNOTFOUND;
  if (wanted & SCRIPTINFO_IUNKNOWN) *item = &host_;
  return S_OK;
}

HRESULT ScriptSite::OnScriptError(IActiveScriptError* error) {
  failed_ = true;
  EXCEPINFO exception{};
  DWORD context = 0;
  ULONG line = 0;
  LONG column = 0;
  error->GetExceptionInfo(&exception);
  error->GetSourcePosition(&context, &line, &column);
  const auto code = static_cast<unsigned long>(exception.scode);
  const basic::Failure failure = to_failure(exception, "the script");
  std::fprintf(stderr, "%s:%lu: error %08lX: %s\n", file_.c_str(), line + 1, code,
               failure.description.c_str());
  return S_OK;
}

}  // namespace velmar::com
