#pragma once

#include <cstdint>

namespace velmar::embedded {

// Numbers of the host's errors.
inline constexpr std::int32_t type_mismatch = 13, unknown_member = 438, no_such_action = 445,
                              saving_failed = -2145320861, bad_argument = -2145320939,
                              wrong_element_count = -2145320944, invalid_layer = -2145386348,
                              undefined_linetype = -2145386359, duplicate_name = -2145386405,
                              on_locked_layer = -2145386413, was_erased = -2145386420,
                              filer_error = -2145386445, no_extents = -2145386468,
                              key_not_found = -2145386476, unknown_handle = -2145386484,
                              invalid_input = -2145386493, drawing_failed = -2147467259;

}  // namespace velmar::embedded
