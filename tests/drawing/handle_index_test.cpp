#include "drawing/handle_index.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace velmar::drawing {
namespace {

std::vector<Record> records_with(const std::vector<Handle>& handles) {
  std::vector<Record> records(handles.size());
  for (std::size_t i = 0; i < handles.size(); ++i) records[i].handle = handles[i];
  return records;
}

void check(const std::vector<Handle>& handles) {
  const auto records = records_with(handles);
  const HandleIndex found = index_handles(records);
  std::vector<std::uint32_t> order, duplicates;
  for (std::uint32_t i = 0; i < handles.size(); ++i) {
    const bool twice =
        std::find(handles.begin(), handles.begin() + i, handles[i]) != handles.begin() + i;
    if (handles[i] != 0) (twice ? duplicates : order).push_back(i);
  }
  std::stable_sort(order.begin(), order.end(),
                   [&](auto a, auto b) { return handles[a] < handles[b]; });
  EXPECT_EQ(found.order, order);
  EXPECT_EQ(found.duplicates, duplicates);
}

TEST(IndexHandles, SortsRunsAndDisorderAndFindsDuplicates) {
  check({});
  check({0, 0});
  check({5});
  check({9, 1, 2, 3, 4, 5, 6, 7, 8, 3, 20, 5});  // one long run, others around it
  check({7, 7, 7});
  check({0xFFFFFFFFFFFFFFFF, 1, 0x8000000000000000, 0, 2});  // all 64 bits
  std::mt19937_64 random(3);
  for (const Handle most : {50u, 5'000u, 4'000'000'000u}) {
    std::vector<Handle> handles;
    for (int i = 0; i < 500; ++i) handles.push_back(random() % most);
    check(handles);
  }
}

}  // namespace
}  // namespace velmar::drawing
