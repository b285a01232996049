#include "drawing/dxf/line_scan.h"

#include <cstddef>

#include "drawing/dxf/line_scan_blocks.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace velmar::drawing::dxf {
namespace {

struct PortableParity {
  static std::uint64_t parity_of_prefixes(std::uint64_t bits) {
    for (int shift = 1; shift < 64; shift *= 2) bits ^= bits << shift;
    return bits;
  }
};

#if defined(__SSE2__)

struct PortableMasks : PortableParity {
  static std::uint64_t bits(__m128i part) {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(part));
  }
  static ByteMasks of(const char* block) {
    ByteMasks masks{};
    for (int part = 0; part < 4; ++part) {
      const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block) + part);
      const __m128i feed = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n'));
      const __m128i carriage = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\r'));
      const __m128i blank = _mm_cmpeq_epi8(bytes, _mm_set1_epi8(' '));
      const __m128i zero = _mm_cmpeq_epi8(bytes, _mm_set1_epi8('0'));
      const __m128i above_zero = _mm_sub_epi8(bytes, _mm_set1_epi8('0'));
      const __m128i digit = _mm_cmpeq_epi8(_mm_min_epu8(above_zero, _mm_set1_epi8(9)), above_zero);
      const __m128i usual = _mm_or_si128(_mm_or_si128(digit, blank), _mm_or_si128(feed, carriage));
      const int shift = 16 * part;
      masks.line_feed |= bits(feed) << shift;
      masks.carriage_return |= bits(carriage) << shift;
      masks.zero |= bits(zero) << shift;
      masks.digit |= bits(digit) << shift;
      masks.usual |= bits(usual) << shift;
    }
    return masks;
  }
};

#else

struct PortableMasks : PortableParity {
  static ByteMasks of(const char* block) {
    ByteMasks masks{};
    for (std::uint64_t i = 0; i < block_size; ++i) {
      const char c = block[i];
      const std::uint64_t bit = std::uint64_t{1} << i;
      if (c == '\n') masks.line_feed |= bit;
      if (c == '\r') masks.carriage_return |= bit;
      if (c == '0') masks.zero |= bit;
      if (c >= '0' && c <= '9') masks.digit |= bit;
      if ((c >= '0' && c <= '9') || c == ' ' || c == '\n' || c == '\r') masks.usual |= bit;
    }
    return masks;
  }
};

#endif

using Find = ScanStop (*)(const char*, const char*);

Find find_for_this_processor() {
#if defined(__x86_64__) || defined(__i386__)
  if (__builtin_cpu_supports("avx2") && __builtin_cpu_supports("pclmul")) return find_record_avx2;
#endif
  return find_record_portable;
}

}  // namespace

ScanStop find_record_portable(const char* at, const char* end) {
  return find_record_in_blocks<PortableMasks>(at, end);
}

ScanStop find_record(const char* at, const char* end) {
  static const Find find = find_for_this_processor();
  return find(at, end);
}

}  // namespace velmar::drawing::dxf
