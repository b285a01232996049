#include <cstddef>
#include <utility>

#include "drawing/dxf/line_scan.h"
#include "drawing/dxf/line_scan_blocks.h"

#if defined(__AVX2__) && defined(__PCLMUL__)
#include <immintrin.h>
#endif

namespace velmar::drawing::dxf {

#if defined(__AVX2__) && defined(__PCLMUL__)
namespace {

struct Avx2Masks {
  /// The product, without carries, with a number that is all ones.
  static std::uint64_t parity_of_prefixes(std::uint64_t bits) {
    const __m128i factor = _mm_set_epi64x(0, static_cast<std::int64_t>(bits));
    const __m128i product = _mm_clmulepi64_si128(factor, _mm_set1_epi8('\xFF'), 0);
    std::uint64_t low = 0;
    _mm_storel_epi64(reinterpret_cast<__m128i*>(&low), product);
    return low;
  }
  static std::uint64_t bits(__m256i low, __m256i high) {
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(low)) |
           static_cast<std::uint64_t>(static_cast<std::uint32_t>(_mm256_movemask_epi8(high))) << 32;
  }
  static __m256i any(__m256i a, __m256i b, __m256i c, __m256i d) {
    return _mm256_or_si256(_mm256_or_si256(a, b), _mm256_or_si256(c, d));
  }
  static __m256i digits(__m256i bytes) {
    const __m256i above_zero = _mm256_sub_epi8(bytes, _mm256_set1_epi8('0'));
    return _mm256_cmpeq_epi8(_mm256_min_epu8(above_zero, _mm256_set1_epi8(9)), above_zero);
  }
  static ByteMasks of(const char* block) {
    const __m256i low = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(block));
    const __m256i high = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(block) + 1);
    const auto equal = [&](char c) {
      const __m256i wanted = _mm256_set1_epi8(c);
      return std::pair(_mm256_cmpeq_epi8(low, wanted), _mm256_cmpeq_epi8(high, wanted));
    };
    const auto [feed_low, feed_high] = equal('\n');
    const auto [return_low, return_high] = equal('\r');
    const auto [blank_low, blank_high] = equal(' ');
    const auto [zero_low, zero_high] = equal('0');
    const __m256i digit_low = digits(low), digit_high = digits(high);
    const ByteMasks masks{bits(feed_low, feed_high), bits(return_low, return_high),
                          bits(zero_low, zero_high), bits(digit_low, digit_high),
                          bits(any(feed_low, return_low, blank_low, digit_low),
                               any(feed_high, return_high, blank_high, digit_high))};
    return masks;
  }
};

}  // namespace

ScanStop find_record_avx2(const char* at, const char* end) {
  return find_record_in_blocks<Avx2Masks>(at, end);
}

#else

ScanStop find_record_avx2(const char* at, const char* end) { return find_record_portable(at, end); }

#endif

}  // namespace velmar::drawing::dxf
