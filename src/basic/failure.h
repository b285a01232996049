#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace velmar::basic {

/// Run-time error numbers of classic Basic, by name. Host errors keep the host's own (negative)
/// number.
enum RunTimeError : std::int32_t {
  bad_argument = 5,
  overflow = 6,
  out_of_memory = 7,
  subscript_out_of_range = 9,
  division_by_zero = 11,
  type_mismatch = 13,
  bad_file_name = 52,
  file_not_found = 53,
  file_already_exists = 58,
  input_past_end = 62,
  permission_denied = 70,
  path_file_access = 75,
  path_not_found = 76,
  object_not_set = 91,
  loop_not_initialized = 92,
  invalid_use_of_null = 94,
  object_required = 424,
  cannot_create_object = 429,
  no_automation = 430,
  class_not_found = 432,
  no_such_member = 438,
  automation_error = 440,
  action_not_supported = 445,
  named_argument_not_found = 448,
  argument_not_optional = 449,
  wrong_argument_count = 450,
  not_a_collection = 451,
  server_unavailable = 462,
  application_defined = 513,
};

/// The one exception of the system: a run-time error or an error that the host reported.
class Failure : public std::exception {
 public:
  /// A run-time error: the description is the standard text of its number, the source "VelmarMenu".
  explicit Failure(RunTimeError number);
  Failure(std::int32_t number, std::string source, std::string description);

  /// 0x800A0000 + number for run-time errors; a negative number is an HRESULT already.
  std::uint32_t hresult() const noexcept;
  const char* what() const noexcept override { return description.c_str(); }

  std::int32_t number;
  std::string source;
  std::string description;
};

/// The standard text of a run-time error number ("Application-defined or object-defined error" for
/// others).
std::string_view run_time_text(std::int32_t number);

}  // namespace velmar::basic
