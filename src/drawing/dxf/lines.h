#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Lines of text DXF, read one by one. They are short and there are many: everything here is
/// inlined.
namespace velmar::drawing::dxf {

/// The first `wanted` in [from, end), or `end`. Mostly it is within the first 16 bytes, or the
/// next: a coordinate in full has some 18.
[[gnu::always_inline]] inline const char* find_byte(const char* from, const char* end,
                                                    char wanted) {
#if defined(__SSE2__)
  for (int part = 0; part < 2 && end - from >= 16; ++part, from += 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    const int found = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted)));
    if (found != 0) return from + std::countr_zero(static_cast<unsigned>(found));
  }
#endif
  const void* found = std::memchr(from, wanted, static_cast<std::size_t>(end - from));
  return found ? static_cast<const char*>(found) : end;
}

/// Which of 64 bytes are `wanted`, the first in the lowest bit.
inline std::uint64_t mask_of(const char* block, char wanted) {
  std::uint64_t mask = 0;
#if defined(__SSE2__)
  for (int part = 0; part < 4; ++part) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block) + part);
    const auto found =
        static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted))));
    mask |= std::uint64_t{found} << (16 * part);
  }
#else
  for (int i = 0; i < 64; ++i) mask |= std::uint64_t{block[i] == wanted} << i;
#endif
  return mask;
}

/// The line ends of a text one after the other; those of 64 bytes at a time are found together.
class LineEnds {
 public:
  LineEnds(const char* from, const char* end, char line_end)
      : next_block_(from), end_(end), line_end_(line_end) {}

  /// The next one, or the end of the text.
  [[gnu::always_inline]] const char* next() {
    while (mask_ == 0) {
      if (end_ - next_block_ < 64) {
        const char* const found = find_byte(next_block_, end_, line_end_);
        next_block_ = found == end_ ? end_ : found + 1;
        return found;
      }
      block_ = next_block_;
      next_block_ += 64;
      mask_ = mask_of(block_, line_end_);
    }
    const char* const found = block_ + std::countr_zero(mask_);
    mask_ &= mask_ - 1;
    return found;
  }

 private:
  const char* block_ = nullptr;
  const char* next_block_;
  const char* end_;
  char line_end_;
  std::uint64_t mask_ = 0;  // line ends of the block that were not given yet
};

/// The number on a group code line as all programs write it, blanks and then digits; -1 for
/// anything else.
[[gnu::always_inline]] inline std::int32_t plain_code(const char* from, const char* line_end) {
  if (line_end != from && line_end[-1] == '\r') --line_end;
  while (from != line_end && *from == ' ') ++from;
  std::int32_t code = -1;
  for (; from != line_end && *from >= '0' && *from <= '9' && code < 10'000; ++from) {
    code = (code < 0 ? 0 : code * 10) + (*from - '0');
  }
  return from == line_end ? code : -1;
}

/// Without the blanks and the carriage return around it.
[[gnu::always_inline]] inline std::string_view trimmed(const char* from, const char* end) {
  const auto is_blank = [](char c) {
    return static_cast<unsigned char>(c) <= ' ' && (c == ' ' || c == '\t' || c == '\r');
  };
  while (from != end && is_blank(*from)) ++from;
  while (from != end && is_blank(end[-1])) --end;
  return {from, static_cast<std::size_t>(end - from)};
}

}  // namespace velmar::drawing::dxf
