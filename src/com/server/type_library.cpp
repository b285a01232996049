#include "com/server/type_library.h"

#include <oleauto.h>

#include "com/server/module.h"

namespace velmar::com {

ComPtr<ITypeLib> own_type_library(HRESULT& result) {
  ComPtr<ITypeLib> library;
  result = LoadTypeLibEx(module_path().c_str(), REGKIND_NONE, library.put());
  return library;
}

HRESULT own_type_info(REFGUID id, ITypeInfo** info) {
  HRESULT result = S_OK;
  const ComPtr<ITypeLib> library = own_type_library(result);
  return library ? library->GetTypeInfoOfGuid(id, info) : result;
}

}  // namespace velmar::com
