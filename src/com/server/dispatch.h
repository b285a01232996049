#pragma once

#include <oaidl.h>
#include <windows.h>

#include <span>

#include "com/server/velmar_object.h"

/// Calling by name: one way for every method and every kind of caller, after the method table.
namespace velmar::com {

/// The identifier of a method by its name, then the positions of its parameters by theirs; in any
/// letter case. -1 and DISP_E_UNKNOWNNAME for what is not published.
HRESULT ids_of_names(std::span<const LPOLESTR> names, std::span<DISPID> ids);

/// Where a caller wants the answers; each may be null.
struct Answers {
  VARIANT* result;
  EXCEPINFO* exception;
  UINT* wrong_argument;
};

/// Arguments become the declared types by the rules of the user's locale. What the method wrote is
/// put back into arguments given by reference, also when it failed.
HRESULT call_by_id(VelmarObject& object, DISPID id, const DISPPARAMS& given,
                   const Answers& answers);

}  // namespace velmar::com
