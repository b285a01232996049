#pragma once

#include <oaidl.h>
#include <windows.h>

#include "com/automation/com_ptr.h"

/// The type library that the DLL carries in itself. Calls need none of it; it is for callers that
/// ask what the class can do, and for registration.
namespace velmar::com {

/// Null with the reason in `result` where it cannot be read.
ComPtr<ITypeLib> own_type_library(HRESULT& result);

/// The description of the class or of its interface.
HRESULT own_type_info(REFGUID id, ITypeInfo** info);

}  // namespace velmar::com
