#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace velmar::drawing {

using Handle = std::uint64_t;  // 0: none

/// A handle as the file and the user write it: upper-case hexadecimal, no leading zeros.
std::string handle_text(Handle handle);
/// 0 for text that is no handle.
Handle parse_handle(std::string_view text);

/// A drawing or one of its records could not be read, edited or written. what() is the whole
/// message: file, line (or byte) and handle where known, what was expected, what was found, what to
/// do.
class Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Something wrong that did not keep the drawing from opening.
struct Warning {
  std::uint64_t line =
      0;  // in a text file, from 1; in a binary one the byte offset; 0 where there is none
  Handle handle = 0;
  std::string text;
};

}  // namespace velmar::drawing
