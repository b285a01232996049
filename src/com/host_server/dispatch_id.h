#pragma once

#include <ole2.h>

#include <optional>
#include <string_view>

#include "host/member.h"

/// The numbers that the members are called by: the same on every object. Item is the default
/// member.
namespace velmar::com {

constexpr DISPID dispatch_id(host::Member member) {
  if (member == host::Member::Item) return DISPID_VALUE;
  return static_cast<DISPID>(member) + 1;
}

/// Nothing for a number that no member has.
constexpr std::optional<host::Member> member_of(DISPID id) {
  if (id == DISPID_VALUE) return host::Member::Item;
  if (id < 0 || id > dispatch_id(host::Member::ZScaleFactor)) return std::nullopt;
  return static_cast<host::Member>(id - 1);
}

/// Without regard to case; DISPID_UNKNOWN for a name that no object has.
inline DISPID find_dispatch_id(std::string_view name) {
  if (name == "_NewEnum") return DISPID_NEWENUM;
  const auto member = host::find_member(name);
  return member ? dispatch_id(*member) : DISPID_UNKNOWN;
}

}  // namespace velmar::com
