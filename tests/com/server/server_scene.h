#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ocidl.h>

#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "com/automation/apartment.h"
#include "com/automation/bstr.h"
#include "com/automation/variant.h"
#include "com/server/loaded_server.h"

namespace velmar::com {

/// What a call by name came to.
struct Answer {
  HRESULT code = S_OK;
  basic::Value result;
  UINT wrong_argument = 99;
  HRESULT error = S_OK;
  std::string source, description;
};

/// A variant that refers to a variable.
template <class T>
VARIANT reference_to(T& variable, VARTYPE type) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = static_cast<VARTYPE>(VT_BYREF | type);
  variant.byref = &variable;
  return variant;
}
VARIANT number(double value);
VARIANT left_out();

DISPID id_of(IDispatch& object, std::string_view name);
/// Arguments in the order of the parameters; those behind `named` parameters have these positions.
Answer call_on(IDispatch& object, std::string_view method, std::vector<VARIANT> arguments,
               std::vector<DISPID> named = {});

/// An object of the server, on a thread in COM.
class ServerScene : public testing::Test {
 protected:
  DISPID id_of(std::string_view name) const { return com::id_of(*object_.get(), name); }
  Answer call(std::string_view method, std::vector<VARIANT> arguments,
              std::vector<DISPID> named = {}) const {
    return call_on(*object_.get(), method, std::move(arguments), std::move(named));
  }

  Apartment apartment_;
  LoadedServer server_{VELMAR_DLL};
  ComPtr<IDispatch> object_ = server_.make_object();
};

}  // namespace velmar::com
