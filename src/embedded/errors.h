#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "basic/failure.h"
#include "drawing/error.h"
#include "host/member.h"

namespace velmar::embedded {

/// The errors of the automation model, by name; the numbers are what callers see.
enum class HostError : std::int32_t {
  disconnected = -2147417848,
  drawing_failed = -2147467259,  // a drawing::Error: its message says what is wrong
  cancelled = -2147352567,
  selection_set_exists = -2145320851,
  saving_failed = -2145320861,
  not_a_drawing = -2145320825,
  no_document = -2145320900,
  file_not_found = -2145320924,
  keyword = -2145320928,
  invalid_argument = -2145320939,
  wrong_element_count = -2145320944,
  invalid_layer = -2145386348,
  undefined_linetype = -2145386359,
  duplicate_record_name = -2145386405,
  on_locked_layer = -2145386413,
  was_erased = -2145386420,
  filer_error = -2145386445,
  not_that_class = -2145386452,
  invalid_key = -2145386465,
  invalid_extents = -2145386468,
  duplicate_key = -2145386475,
  key_not_found = -2145386476,
  unknown_handle = -2145386484,
  invalid_input = -2145386493,
};

/// The failure with the error's own text and the source "AutoCAD".
basic::Failure failure(HostError error);
basic::Failure failure(HostError error, std::string description);
/// "Invalid argument P in M".
basic::Failure invalid_argument(std::string_view parameter, host::Member method);
/// Run-time error 445 for what this host cannot do; `what` says it in full: "Move of MTEXT".
basic::Failure not_supported(std::string_view what);
/// Run-time error 438.
basic::Failure no_such_member(host::Member member);

/// Runs a step on the drawing; what the drawing refuses becomes a host failure with its message.
template <class Step>
decltype(auto) translated(Step step) {
  try {
    return step();
  } catch (const drawing::Error& error) {
    throw failure(HostError::drawing_failed, error.what());
  }
}

}  // namespace velmar::embedded
