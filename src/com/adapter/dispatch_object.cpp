#include "com/adapter/dispatch_object.h"

#include "basic/failure.h"
#include "com/adapter/item_walk.h"
#include "com/adapter/packed_arguments.h"
#include "com/automation/bstr.h"
#include "com/automation/failure_crossing.h"
#include "host/error_styles.h"

namespace velmar::com {
namespace {

bool may_erase(Member method) {
  switch (method) {
    case Member::Close:
    case Member::Delete:
    case Member::Erase:
    case Member::PurgeAll:
    case Member::SendCommand:
      return true;
    default:
      return false;
  }
}

/// A member that is read with an index and put with an index and a value.
bool is_indexed_put(Member member, std::size_t argument_count) {
  return member == Member::Coordinate && argument_count == 2;
}

}  // namespace

struct DispatchObject::Request {
  Member member;
  WORD flags;
  std::span<VARIANT> reversed;
  Variant result{};
  EXCEPINFO exception{};
};

Value DispatchObject::get(Member member) {
  Request request{member, DISPATCH_PROPERTYGET, {}};
  require(try_invoke(request), request);
  return to_value(request.result.get(), *connection_);
}

void DispatchObject::put(Member member, const Value& value) {
  put(member, std::span(&value, 1), value.is<basic::Reference>());
}

void DispatchObject::put(Member member, std::span<const Value> indexes_and_value, bool object) {
  PackedArguments packed(member, indexes_and_value, *connection_, connection_->out_as_variants);
  Request request{member, DISPATCH_PROPERTYPUT, packed.reversed()};
  HRESULT code = try_invoke(request);
  if (code == DISP_E_MEMBERNOTFOUND && object) {  // hosts differ in how an object is put
    request.flags = DISPATCH_PROPERTYPUTREF;
    code = try_invoke(request);
  }
  require(code, request);
}

Value DispatchObject::call(Member member, std::span<Value> arguments) {
  if (may_erase(member)) ++connection_->erasures;
  if (is_indexed_put(member, arguments.size())) {
    put(member, arguments, false);
    return {};
  }
  bool out_as_variants = connection_->out_as_variants;
  for (;;) {
    PackedArguments packed(member, arguments, *connection_, out_as_variants);
    Request request{member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, packed.reversed()};
    const HRESULT code = try_invoke(request);
    if (code == DISP_E_TYPEMISMATCH) {
      out_as_variants = true;
      if (packed.has_typed_out()) continue;
    } else {
      connection_->out_as_variants = out_as_variants;
    }
    if (FAILED(code)) host::attempt([&] { packed.write_back(arguments); });
    require(code, request);
    packed.write_back(arguments);
    return to_value(request.result.get(), *connection_);
  }
}

std::unique_ptr<host::Enumerator> DispatchObject::enumerate() {
  return walk(*object_.get(), connection_, is_afar(*object_.get()));
}

bool DispatchObject::answers() {
  connection_->gone = false;
  UINT count = 0;
  connection_->patiently([&] { return object_->GetTypeInfoCount(&count); });
  return !connection_->gone;
}

DISPID DispatchObject::id_of(Member member) {
  if (!ids_) ids_ = connection_->types.of(*object_.get());
  if (const DISPID known = ids_->find(member); known != DISPID_UNKNOWN) return known;
  std::wstring name = to_wide(host::spelling(member));
  LPOLESTR names = name.data();
  DISPID id = DISPID_UNKNOWN;
  const HRESULT code = connection_->patiently(
      [&] { return object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id); });
  if (code == DISP_E_UNKNOWNNAME) {
    throw basic::Failure(basic::no_such_member, "VelmarMenu",
                         std::string(basic::run_time_text(basic::no_such_member)) + ": " +
                             std::string(host::spelling(member)));
  }
  if (FAILED(code)) throw to_failure(code, step(member));
  ids_->known.emplace_back(member, id);
  return id;
}

HRESULT DispatchObject::try_invoke(Request& request) {
  const DISPID id = id_of(request.member);
  DISPID named = DISPID_PROPERTYPUT;
  const bool put = request.flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
  DISPPARAMS parameters{request.reversed.data(), put ? &named : nullptr,
                        static_cast<UINT>(request.reversed.size()), put ? 1U : 0U};
  return connection_->patiently([&] {
    UINT wrong_argument = 0;
    return object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, request.flags, &parameters,
                           put ? nullptr : &request.result.fresh(), &request.exception,
                           &wrong_argument);
  });
}

void DispatchObject::require(HRESULT code, Request& request) const {
  if (SUCCEEDED(code)) return;
  const std::string what = step(request.member);
  throw code == DISP_E_EXCEPTION ? to_failure(request.exception, what) : to_failure(code, what);
}

std::string DispatchObject::step(Member member) const {
  return "Method '" + std::string(host::spelling(member)) + "' of object '" +
         (ids_ ? ids_->type_name : "IDispatch") + "'";
}

}  // namespace velmar::com
