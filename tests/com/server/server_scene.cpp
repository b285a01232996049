#include "com/server/server_scene.h"

#include <algorithm>

namespace velmar::com {

VARIANT number(double value) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_R8;
  variant.dblVal = value;
  return variant;
}

VARIANT left_out() {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_ERROR;
  variant.scode = DISP_E_PARAMNOTFOUND;
  return variant;
}

DISPID id_of(IDispatch& object, std::string_view name) {
  std::wstring wide = to_wide(name);
  LPOLESTR names = wide.data();
  DISPID id = DISPID_UNKNOWN;
  object.GetIDsOfNames(IID_NULL, &names, 1, 0, &id);
  return id;
}

Answer call_on(IDispatch& object, std::string_view method, std::vector<VARIANT> arguments,
               std::vector<DISPID> named) {
  std::ranges::reverse(arguments);
  std::ranges::reverse(named);
  DISPPARAMS given{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                   static_cast<UINT>(named.size())};
  Answer answer;
  Variant result;
  EXCEPINFO exception{};
  answer.code =
      object.Invoke(id_of(object, method), IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                    &given, &result.fresh(), &exception, &answer.wrong_argument);
  answer.result = to_value(result.get());
  answer.error = exception.scode;
  answer.source = to_utf8(Bstr::taking(exception.bstrSource).get());
  answer.description = to_utf8(Bstr::taking(exception.bstrDescription).get());
  SysFreeString(exception.bstrHelpFile);
  return answer;
}

}  // namespace velmar::com
