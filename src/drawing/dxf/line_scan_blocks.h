#pragma once

#include <bit>
#include <cstdint>

#include "drawing/dxf/line_scan.h"

namespace velmar::drawing::dxf {

/// Which of 64 bytes are what, the first byte in the lowest bit.
struct ByteMasks {
  std::uint64_t line_feed, carriage_return, blank, zero;
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

/// The scan over whole blocks; `Masks::of` gives the masks of the 64 bytes at an address,
/// `Masks::parity_of_prefixes` a mask whose bit i is the exclusive or of bits 0 to i. What is left
/// at the end, less than a block, is for the caller: then `unusual` is set and `at` is where this
/// stopped: the beginning of a group code line.
template <class Masks>
ScanStop find_record_in_blocks(const char* at, const char* end) {
  std::uint64_t in_value = 0;  // all ones where the block begins within a value line
  Previous after_feed{1}, after_blank{0}, after_zero{0}, after_zero_return{0}, after_feed_return{0},
      after_blank_return{0};
  for (const char* block = at; end - block >= static_cast<std::ptrdiff_t>(block_size);
       block += block_size) {
    __builtin_prefetch(block + ahead);
    const ByteMasks bytes = Masks::of(block);
    const std::uint64_t feeds = Masks::parity_of_prefixes(bytes.line_feed);
    const std::uint64_t code_lines = ~(feeds ^ bytes.line_feed ^ in_value);
    const std::uint64_t code_ends = bytes.line_feed & code_lines;
    const std::uint64_t begins = after_feed(bytes.line_feed);
    const std::uint64_t follows_blank = after_blank(bytes.blank);
    const std::uint64_t follows_zero = after_zero(bytes.zero & (begins | follows_blank));
    const std::uint64_t returns = bytes.carriage_return;
    const std::uint64_t records =
        code_ends & (follows_zero | after_zero_return(returns & follows_zero));
    const std::uint64_t empty = code_ends & (begins | after_feed_return(returns & begins));
    const std::uint64_t trailing =
        code_ends & (follows_blank | after_blank_return(returns & follows_blank));
    const std::uint64_t odd = (code_lines & ~bytes.usual) | empty | trailing;
    if ((records | odd) != 0) {
      if (odd != 0 && (records == 0 || std::countr_zero(odd) < std::countr_zero(records))) {
        return {at, true};
      }
      const char* line = block + std::countr_zero(records);
      while (line != at && line[-1] != '\n') --line;
      return {line, false};
    }
    if ((feeds >> 63) != 0) in_value = ~in_value;
  }
  return {at, true};
}

}  // namespace velmar::drawing::dxf
