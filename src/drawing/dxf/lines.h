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

/// The first `wanted` in [from, end), or `end`. Mostly it is within the first 16 bytes.
inline const char* find_byte(const char* from, const char* end, char wanted) {
#if defined(__SSE2__)
  if (end - from >= 16) {
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    const int found = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(wanted)));
    if (found != 0) return from + std::countr_zero(static_cast<unsigned>(found));
    from += 16;
  }
#endif
  const void* found = std::memchr(from, wanted, static_cast<std::size_t>(end - from));
  return found ? static_cast<const char*>(found) : end;
}

/// Without the blanks and the carriage return around it.
inline std::string_view trimmed(const char* from, const char* end) {
  const auto is_blank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  while (from != end && is_blank(*from)) ++from;
  while (from != end && is_blank(end[-1])) --end;
  return {from, static_cast<std::size_t>(end - from)};
}

/// Reads blanks, a group code and a line end, as all programs write it, and goes behind them; -1,
/// and `at` stays, for anything else.
inline std::int32_t take_plain_code(const char*& at, const char* end, char line_end) {
  const char* p = at;
  while (p != end && *p == ' ') ++p;
  std::int32_t code = -1;
  for (; p != end && *p >= '0' && *p <= '9' && code < 10'000; ++p) {
    code = (code < 0 ? 0 : code * 10) + (*p - '0');
  }
  if (p != end && *p == '\r' && line_end != '\r') ++p;
  if (p == end || *p != line_end) return -1;
  at = p + 1;
  return code;
}

}  // namespace velmar::drawing::dxf
