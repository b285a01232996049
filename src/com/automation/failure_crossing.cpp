#include "com/automation/failure_crossing.h"

#include <algorithm>
#include <array>
#include <new>
#include <string>

#include "com/automation/bstr.h"
#include "com/automation/com_ptr.h"

namespace velmar::com {
namespace {

using basic::Failure;

struct Translation {
  HRESULT code;
  basic::RunTimeError number;
};

HRESULT from_win32(int error) { return HRESULT_FROM_WIN32(static_cast<unsigned long>(error)); }

basic::RunTimeError translated(HRESULT code) {
  static const auto table = std::to_array<Translation>({
      {DISP_E_TYPEMISMATCH, basic::type_mismatch},
      {TYPE_E_TYPEMISMATCH, basic::type_mismatch},
      {DISP_E_OVERFLOW, basic::overflow},
      {DISP_E_BADINDEX, basic::subscript_out_of_range},
      {TYPE_E_OUTOFBOUNDS, basic::subscript_out_of_range},
      {DISP_E_DIVBYZERO, basic::division_by_zero},
      {DISP_E_MEMBERNOTFOUND, basic::no_such_member},
      {DISP_E_UNKNOWNNAME, basic::no_such_member},
      {DISP_E_UNKNOWNINTERFACE, basic::no_such_member},
      {DISP_E_PARAMNOTFOUND, basic::named_argument_not_found},
      {DISP_E_NONAMEDARGS, basic::named_argument_not_found},
      {DISP_E_PARAMNOTOPTIONAL, basic::argument_not_optional},
      {DISP_E_BADPARAMCOUNT, basic::wrong_argument_count},
      {DISP_E_NOTACOLLECTION, basic::not_a_collection},
      {E_INVALIDARG, basic::bad_argument},
      {E_OUTOFMEMORY, basic::out_of_memory},
      {E_NOTIMPL, basic::action_not_supported},
      {E_NOINTERFACE, basic::no_automation},
      {E_ACCESSDENIED, basic::permission_denied},
      {STG_E_ACCESSDENIED, basic::permission_denied},
      {STG_E_FILENOTFOUND, basic::class_not_found},
      {STG_E_PATHNOTFOUND, basic::path_not_found},
      {REGDB_E_CLASSNOTREG, basic::cannot_create_object},
      {CO_E_CLASSSTRING, basic::cannot_create_object},
      {CO_E_APPNOTFOUND, basic::cannot_create_object},
      {CO_E_SERVER_EXEC_FAILURE, basic::cannot_create_object},
      {MK_E_UNAVAILABLE, basic::cannot_create_object},
      {from_win32(RPC_S_SERVER_UNAVAILABLE), basic::server_unavailable},
      {from_win32(RPC_S_CALL_FAILED), basic::server_unavailable},
      {RPC_E_SERVER_DIED, basic::server_unavailable},
      {RPC_E_SERVER_DIED_DNE, basic::server_unavailable},
  });
  const auto found = std::ranges::find(table, code, &Translation::code);
  return found == table.end() ? basic::RunTimeError{} : found->number;
}

/// The run-time error number inside a code of its facility; other codes as they are.
std::int32_t number_of(HRESULT code) {
  constexpr std::uint32_t run_time_errors = 0x800A0000;
  const auto bits = static_cast<std::uint32_t>(code);
  return static_cast<std::int32_t>((bits & 0xFFFF0000) == run_time_errors ? bits & 0xFFFF : bits);
}

/// What the system says of the codes that a broken connection gives. Others have no texts: the
/// system's own table has foreign ones for the numbers of hosts.
std::string text_of(HRESULT code, std::string_view step) {
  switch (code) {
    case RPC_E_CALL_REJECTED:
      return "Call was rejected by callee";
    case RPC_E_SERVERCALL_RETRYLATER:
      return "The message filter indicated that the application is busy";
    case RPC_E_DISCONNECTED:
      return "The object invoked has disconnected from its clients";
    case RPC_E_SERVERFAULT:
      return "The server threw an exception";
    default:
      return step.empty() ? std::string(basic::run_time_text(basic::automation_error))
                          : std::string(step) + " failed";
  }
}

}  // namespace

Failure to_failure(HRESULT code, std::string_view step) {
  if (const basic::RunTimeError known = translated(code)) return Failure(known);
  const std::int32_t number = number_of(code);
  if (number > 0) return {number, "VelmarMenu", std::string(basic::run_time_text(number))};
  return {number, "VelmarMenu", text_of(code, step)};
}

Failure to_failure(EXCEPINFO& exception, std::string_view step) {
  if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
  const Bstr source = Bstr::taking(exception.bstrSource);
  const Bstr description = Bstr::taking(exception.bstrDescription);
  const Bstr help_file = Bstr::taking(exception.bstrHelpFile);
  HRESULT code = exception.scode;
  if (code == 0 && exception.wCode != 0) code = static_cast<HRESULT>(0x800A0000U + exception.wCode);
  if (code == 0) code = DISP_E_EXCEPTION;
  exception = {};

  std::string text = to_utf8(description.get());
  if (text.empty()) {
    Failure failure = to_failure(code, step);
    if (SysStringLen(source.get())) failure.source = to_utf8(source.get());
    return failure;
  }
  return {number_of(code), to_utf8(source.get()), std::move(text)};
}

Failure to_reported_failure(HRESULT code, std::string_view step) {
  ComPtr<IErrorInfo> information;
  if (GetErrorInfo(0, information.put()) != S_OK) return to_failure(code, step);
  EXCEPINFO exception{};
  exception.scode = code;
  information->GetSource(&exception.bstrSource);
  information->GetDescription(&exception.bstrDescription);
  return to_failure(exception, step);
}

void forget_reported_failure() { SetErrorInfo(0, nullptr); }

HRESULT describe(const Failure& failure, EXCEPINFO* exception) {
  if (exception) {
    *exception = {};
    exception->scode = static_cast<SCODE>(failure.hresult());
    exception->bstrSource = Bstr(failure.source).release();
    exception->bstrDescription = Bstr(failure.description).release();
  }
  return DISP_E_EXCEPTION;
}

HRESULT report(const Failure& failure) {
  ComPtr<ICreateErrorInfo> made;
  if (SUCCEEDED(CreateErrorInfo(made.put()))) {
    made->SetSource(Bstr(failure.source).get());
    made->SetDescription(Bstr(failure.description).get());
    if (const auto information = made.as<IErrorInfo>()) SetErrorInfo(0, information.get());
  }
  return static_cast<HRESULT>(failure.hresult());
}

Failure caught() {
  try {
    throw;
  } catch (const Failure& failure) {
    return failure;
  } catch (const std::bad_alloc&) {
    return Failure(basic::out_of_memory);
  } catch (const std::exception& error) {
    return {E_UNEXPECTED, "VelmarMenu", error.what()};
  } catch (...) {
    return {E_UNEXPECTED, "VelmarMenu", "An unexpected error"};
  }
}

HRESULT argument_code(const Failure& failure) {
  switch (failure.number) {
    case basic::overflow:
      return DISP_E_OVERFLOW;
    case basic::out_of_memory:
      return E_OUTOFMEMORY;
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

}  // namespace velmar::com
