#include "com/adapter/dispatch_ids.h"

#include <optional>

#include "com/automation/bstr.h"

namespace velmar::com {
namespace {

std::optional<GUID> interface_of(ITypeInfo& information) {
  TYPEATTR* attributes = nullptr;
  if (FAILED(information.GetTypeAttr(&attributes)) || !attributes) return std::nullopt;
  const GUID interface_id = attributes->guid;
  information.ReleaseTypeAttr(attributes);
  if (interface_id == GUID{}) return std::nullopt;
  return interface_id;
}

std::string name_of(ITypeInfo& information) {
  Bstr name;
  information.GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr);
  return to_utf8(name.get());
}

}  // namespace

DISPID DispatchIds::find(host::Member member) const {
  for (const auto& [name, id] : known) {
    if (name == member) return id;
  }
  return DISPID_UNKNOWN;
}

std::shared_ptr<DispatchIds> KnownTypes::of(IDispatch& object) {
  ComPtr<ITypeInfo> information;
  if (!without_type_information_) object.GetTypeInfo(0, LOCALE_USER_DEFAULT, information.put());
  const auto interface_id = information ? interface_of(*information.get()) : std::nullopt;
  if (!interface_id) {
    without_type_information_ = true;
    return std::make_shared<DispatchIds>(DispatchIds{"IDispatch", {}});
  }
  for (const Known& type : types_) {
    if (type.interface_id == *interface_id) return type.ids;
  }
  auto ids = std::make_shared<DispatchIds>(DispatchIds{name_of(*information.get()), {}});
  types_.push_back({*interface_id, ids});
  return ids;
}

}  // namespace velmar::com
