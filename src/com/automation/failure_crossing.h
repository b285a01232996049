#pragma once

#include <ole2.h>

#include <string_view>

#include "basic/failure.h"

/// Failures become what automation callers see, and the reverse. A run-time error n is 0x800A0000 +
/// n outside; a host's error keeps its own code.
namespace velmar::com {

/// The failure for a code without any text: codes of automation become the run-time errors that
/// Basic has for them, others keep their number. `step` says what failed: "Method 'Move' of object
/// 'IAcadLine'".
basic::Failure to_failure(HRESULT code, std::string_view step = {});

/// The failure that a callee described after DISP_E_EXCEPTION. Frees the texts.
basic::Failure to_failure(EXCEPINFO& exception, std::string_view step = {});

/// The failure that a callee left as this thread's error information, which is taken; the one for
/// the code alone where it left none. What others left there before is to be forgotten before the
/// call.
basic::Failure to_reported_failure(HRESULT code, std::string_view step = {});
void forget_reported_failure();

/// Describes a failure to the caller of Invoke; `exception` may be null. DISP_E_EXCEPTION.
HRESULT describe(const basic::Failure& failure, EXCEPINFO* exception);

/// Leaves the failure as this thread's error information; its code.
HRESULT report(const basic::Failure& failure);

/// Inside a catch block: what is being handled as a failure; E_OUTOFMEMORY as error 7, what is not
/// known as E_UNEXPECTED.
basic::Failure caught();

/// What automation itself says of an argument that does not convert: DISP_E_TYPEMISMATCH,
/// DISP_E_OVERFLOW.
HRESULT argument_code(const basic::Failure& failure);

}  // namespace velmar::com
