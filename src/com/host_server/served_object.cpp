#include "com/host_server/served_object.h"

#include <utility>

#include "com/automation/bstr.h"
#include "com/automation/failure_crossing.h"
#include "com/host_server/dispatch_id.h"
#include "com/host_server/received_arguments.h"
#include "com/host_server/served_items.h"

namespace velmar::com {
namespace {

constexpr WORD puts = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

/// Run-time errors come from this server here; errors of the host keep their source.
HRESULT describe_current(EXCEPINFO* exception) {
  basic::Failure failure = caught();
  if (failure.source == "VelmarMenu") failure.source = "Velmar";
  return describe(failure, exception);
}

bool names_only_the_new_value(const DISPPARAMS& parameters, bool put) {
  if (!put) return parameters.cNamedArgs == 0;
  return parameters.cNamedArgs == 1 && *parameters.rgdispidNamedArgs == DISPID_PROPERTYPUT;
}

}  // namespace

// {6E1B7A52-93C4-4B0D-8E57-2F0C9A7D41B6}
const IID ServedObject::own_id = {
    0x6E1B7A52, 0x93C4, 0x4B0D, {0x8E, 0x57, 0x2F, 0x0C, 0x9A, 0x7D, 0x41, 0xB6}};

ServedObject::ServedObject(std::shared_ptr<host::Object> object, std::shared_ptr<ServedObjects> all)
    : object_(std::move(object)), all_(std::move(all)) {
  all_->served_.emplace(object_.get(), this);
}

ServedObject::~ServedObject() { all_->served_.erase(object_.get()); }

HRESULT ServedObject::QueryInterface(REFIID id, void** found) {
  if (!found) return E_POINTER;
  *found = nullptr;
  if (id == __uuidof(IUnknown) || id == __uuidof(IDispatch)) {
    *found = static_cast<IDispatch*>(this);
  } else if (id == __uuidof(IExternalConnection)) {
    *found = static_cast<IExternalConnection*>(this);
  } else if (id == own_id) {
    *found = this;
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG ServedObject::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

HRESULT ServedObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT ServedObject::GetTypeInfo(UINT, LCID, ITypeInfo** information) {
  if (information) *information = nullptr;
  return E_NOTIMPL;
}

HRESULT ServedObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) try {
  if (!names || !ids || count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;  // arguments have no names
  ids[0] = find_dispatch_id(to_utf8(std::wstring_view(names[0])));
  return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
} catch (const std::bad_alloc&) {
  return E_OUTOFMEMORY;
}

HRESULT ServedObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                             VARIANT* result, EXCEPINFO* exception, UINT* wrong_argument) {
  const auto member = member_of(id);
  if (!parameters) return E_INVALIDARG;
  if (!member && id != DISPID_NEWENUM) return DISP_E_MEMBERNOTFOUND;
  if (!names_only_the_new_value(*parameters, flags & puts)) return DISP_E_NONAMEDARGS;
  const auto kept_alive = ComPtr<IDispatch>::sharing(this);
  ++all_->calls_;
  try {
    Variant answered = member ? answer(*member, flags, *parameters) : items();
    if (result) *result = answered.release();
    return S_OK;
  } catch (const WrongArgument& wrong) {
    if (wrong_argument) *wrong_argument = wrong.position;
    return wrong.code;
  } catch (...) {
    return describe_current(exception);
  }
}

Variant ServedObject::answer(host::Member member, WORD flags, DISPPARAMS& parameters) {
  ReceivedArguments arguments(member, parameters, *all_);
  try {
    const basic::Value value = answer(member, flags, arguments.values());
    arguments.write_back();
    return to_variant(value, *all_);
  } catch (const basic::Failure&) {
    arguments.write_back();  // what was written before the failure is the caller's
    throw;
  }
}

basic::Value ServedObject::answer(host::Member member, WORD flags,
                                  std::span<basic::Value> arguments) {
  if (flags & puts && arguments.size() == 1) {
    object_->put(member, arguments.front());
    return {};
  }
  // A property that is put with an index is a method of two arguments here.
  return flags & DISPATCH_METHOD || !arguments.empty() ? object_->call(member, arguments)
                                                       : object_->get(member);
}

Variant ServedObject::items() {
  Variant variant;
  variant.fresh().punkVal = static_cast<IEnumVARIANT*>(new ServedItems(object_, all_));
  variant.fresh().vt = VT_UNKNOWN;
  return variant;
}

DWORD ServedObject::AddConnection(DWORD kind, DWORD) {
  return kind & EXTCONN_STRONG ? ++all_->connections_ : 0;
}

DWORD ServedObject::ReleaseConnection(DWORD kind, DWORD, BOOL) {
  return kind & EXTCONN_STRONG ? --all_->connections_ : 0;
}

}  // namespace velmar::com
