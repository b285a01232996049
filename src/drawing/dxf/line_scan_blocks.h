#pragma once

#include <bit>
#include <cstdint>

#include "drawing/dxf/line_scan.h"

namespace velmar::drawing::dxf {

/// Which of 64 bytes are what, the first byte in the lowest bit.
struct ByteMasks {
  std::uint64_t line_feed, carriage_return, zero, digit;
  std::uint64_t usual;  // digits, blanks and line ends: what a group code line is made of
};

constexpr std::uint64_t block_size = 64;
constexpr std::uint64_t ahead = 768;  // bytes; so far on a block is fetched before it is looked at

// Always inlined: this header is compiled for two kinds of processor, and no shared copy may remain
// for the linker.

/// A mask of bytes and the same moved up by one byte, which carries over from block to block.
struct Previous {
  std::uint64_t carry;
  [[gnu::always_inline]] std::uint64_t operator()(std::uint64_t mask) {
    const std::uint64_t moved = mask << 1 | carry;
    carry = mask >> 63;
    return moved;
  }
};

/// Whether a line ends there.
[[gnu::always_inline]] inline bool ends_line(const char* at, const char* end) {
  if (at != end && *at == '\r') ++at;
  return at != end && *at == '\n';
}

/// The scan over whole blocks; `Masks::of` gives the masks of the 64 bytes at an address,
/// `Masks::parity_of_prefixes` a mask whose bit i is the exclusive or of bits 0 to i. What is left
/// at the end, less than a block, is for the caller: then `unusual` is set and `at` is where this
/// stopped: the beginning of a group code line.
template <class Masks>
ScanStop find_record_in_blocks(const char* at, const char* end) {
  std::uint64_t in_value = 0;  // all ones where the block begins within a value line
  Previous after_digit{0}, after_return{0};
  for (const char* block = at; end - block >= static_cast<std::ptrdiff_t>(block_size);
       block += block_size) {
    __builtin_prefetch(block + ahead);
    const ByteMasks bytes = Masks::of(block);
    const std::uint64_t feeds = Masks::parity_of_prefixes(bytes.line_feed);
    const std::uint64_t code_lines = ~(feeds ^ bytes.line_feed ^ in_value);
    const std::uint64_t follows_digit = after_digit(bytes.digit);
    const std::uint64_t follows_return = after_return(bytes.carriage_return);
    // A line ends behind a digit; anything but blanks and digits before that is odd.
    const std::uint64_t odd_ends = (bytes.carriage_return | bytes.line_feed) & ~follows_digit &
                                   ~(bytes.line_feed & follows_return);
    const std::uint64_t odd = code_lines & (~bytes.usual | odd_ends);
    const std::uint64_t leading_zeros = code_lines & bytes.zero & ~follows_digit;
    if ((leading_zeros | odd) != 0) {
      const char* line = block + std::countr_zero(leading_zeros | odd);
      if (*line != '0' || !ends_line(line + 1, end)) return {at, true};
      while (line != at && line[-1] != '\n') --line;
      return {line, false};
    }
    if ((feeds >> 63) != 0) in_value = ~in_value;
  }
  return {at, true};
}

}  // namespace velmar::drawing::dxf
