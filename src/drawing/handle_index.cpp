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
  const auto digit = [&](std::uint32_t i) {
    return static_cast<std::size_t>(records[i].handle >> shift) & (digits - 1);
  };
  std::array<std::uint32_t, digits> place{};
  for (const std::uint32_t i : order) ++place[digit(i)];
  std::uint32_t before = 0;
  for (std::uint32_t& count : place) before += std::exchange(count, before);
  for (const std::uint32_t i : order) scratch[place[digit(i)]++] = i;
  order.swap(scratch);
}

/// By radix: linear, but with jumps through memory.
void sort_all(const std::vector<Record>& records, std::vector<std::uint32_t>& order) {
  Handle highest = 0;
  for (const std::uint32_t i : order) highest = std::max(highest, records[i].handle);
  std::vector<std::uint32_t> scratch(order.size());
  for (int shift = 0; shift < 64 && (highest >> shift) != 0; shift += digit_bits) {
    sort_by_digit(records, order, scratch, shift);
  }
}

struct Run {
  std::size_t begin = 0, end = 0;
  std::size_t size() const { return end - begin; }
};

Run longest_ascending_run(const std::vector<Record>& records,
                          const std::vector<std::uint32_t>& order) {
  Run longest, run;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i > 0 && records[order[i]].handle <= records[order[i - 1]].handle) run.begin = i;
    run.end = i + 1;
    if (run.size() > longest.size()) longest = run;
  }
  return longest;
}

/// Programs number entities as they write them: mostly one long run is in order already, and the
/// few others are merged into it.
void sort_by_handle(const std::vector<Record>& records, std::vector<std::uint32_t>& order) {
  const Run run = longest_ascending_run(records, order);
  if (run.size() == order.size()) return;
  if (run.size() < order.size() / 4 * 3) return sort_all(records, order);
  const auto begin = order.begin() + static_cast<std::ptrdiff_t>(run.begin);
  const auto end = order.begin() + static_cast<std::ptrdiff_t>(run.end);
  std::vector<std::uint32_t> others(order.begin(), begin);
  others.insert(others.end(), end, order.end());
  const auto before = [&](std::uint32_t a, std::uint32_t b) {
    const Handle left = records[a].handle, right = records[b].handle;
    return left != right ? left < right : a < b;
  };
  std::sort(others.begin(), others.end(), before);
  std::vector<std::uint32_t> merged(order.size());
  std::merge(begin, end, others.begin(), others.end(), merged.begin(), before);
  order.swap(merged);
}

}  // namespace

HandleIndex index_handles(const std::vector<Record>& records) {
  HandleIndex result;
  result.order.reserve(records.size());
  for (std::uint32_t i = 0; i < records.size(); ++i) {
    if (records[i].handle != 0) result.order.push_back(i);
  }
  sort_by_handle(records, result.order);
  Handle last = 0;
  const auto taken = [&](std::uint32_t i) {
    const bool twice = records[i].handle == last;
    if (twice) result.duplicates.push_back(i);
    last = records[i].handle;
    return twice;
  };
  std::erase_if(result.order, taken);
  std::sort(result.duplicates.begin(), result.duplicates.end());
  return result;
}

}  // namespace velmar::drawing
