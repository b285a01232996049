#pragma once

#include <cstddef>
#include <cstdint>

#include "host/member.h"

namespace velmar::com {

enum class Passing : std::uint8_t { in, out_variant, out_object, out_real };

/// How the automation model declares an argument. Only those of the methods that write into their
/// arguments are not `in`.
constexpr Passing passing_of(host::Member method, std::size_t argument) {
  using host::Member;
  switch (method) {
    case Member::GetBoundingBox:
      return Passing::out_variant;
    case Member::GetEntity:
      return argument == 0   ? Passing::out_object
             : argument == 1 ? Passing::out_variant
                             : Passing::in;
    case Member::GetLoopAt:
      return argument == 1 ? Passing::out_variant : Passing::in;
    case Member::GetWidth:
      return argument == 0 ? Passing::in : Passing::out_real;
    case Member::GetXData:
      return argument == 0 ? Passing::in : Passing::out_variant;
    default:
      return Passing::in;
  }
}

}  // namespace velmar::com
