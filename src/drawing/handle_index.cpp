#include "drawing/handle_index.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmar::drawing {
namespace {

constexpr int digit_bits = 11;
constexpr std::size_t digits = std::size_t{1} << digit_bits;

/// One pass: by the digit of the handle that begins at bit `shift`.
void sort_by_digit(const std::vector<Record>& records, std::vector<std::uint32_t>& order,
                   std::vector<std::uint32_t>& scratch, int shift) {
  const auto digit = [&](std::uint32_t i) { return (records[i].handle >> shift) & (digits - 1); };
  std::array<std::uint32_t, digits> place{};
  for (const std::uint32_t i : order) ++place[digit(i)];
  std::uint32_t before = 0;
  for (std::uint32_t& count : place) before += std::exchange(count, before);
  for (const std::uint32_t i : order) scratch[place[digit(i)]++] = i;
  order.swap(scratch);
}

}  // namespace

HandleIndex index_handles(const std::vector<Record>& records) {
  HandleIndex result;
  result.order.reserve(records.size());
  Handle highest = 0, last = 0;
  bool sorted = true;
  for (std::uint32_t i = 0; i < records.size(); ++i) {
    const Handle handle = records[i].handle;
    if (handle == 0) continue;
    result.order.push_back(i);
    highest = std::max(highest, handle);
    sorted = sorted && handle > last;
    last = handle;
  }
  if (!sorted) {
    std::vector<std::uint32_t> scratch(result.order.size());
    for (int shift = 0; shift < 64 && (highest >> shift) != 0; shift += digit_bits) {
      sort_by_digit(records, result.order, scratch, shift);
    }
  }
  last = 0;
  const auto taken = [&](std::uint32_t i) {
    const bool twice = records[i].handle == last;
    if (twice) result.duplicates.push_back(i);
    last = records[i].handle;
    return twice;
  };
  if (!sorted) std::erase_if(result.order, taken);
  std::sort(result.duplicates.begin(), result.duplicates.end());
  return result;
}

}  // namespace velmar::drawing
