#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velmar::drawing::dxf {

/// Remembers what some of the latest byte strings stand for (names of kinds and layers, owners), so
/// that one that comes again costs a comparison. The views must outlive the cache.
template <class Meaning>
class ViewCache {
 public:
  /// The meaning of `text`: remembered, or found by `look_up(text)`.
  template <class LookUp>
  Meaning get(std::string_view text, LookUp look_up) {
    Slot& slot = slots_[slot_of(text)];
    if (slot.text.size() != text.size() || slot.text.data() == nullptr ||
        std::memcmp(slot.text.data(), text.data(), text.size()) != 0) {
      slot = {text, look_up(text)};
    }
    return slot.meaning;
  }

 private:
  struct Slot {
    std::string_view text;
    Meaning meaning{};
  };
  static constexpr int slot_bits = 7;

  static std::size_t slot_of(std::string_view text) {
    std::uint64_t head = 0, tail = 0;
    const std::size_t count = std::min(text.size(), sizeof head);
    std::memcpy(&head, text.data(), count);
    std::memcpy(&tail, text.data() + (text.size() - count), count);
    const std::uint64_t mixed = (head ^ (tail << 1) ^ text.size()) * 0x9E3779B97F4A7C15u;
    return static_cast<std::size_t>(mixed >> (64 - slot_bits));
  }

  std::array<Slot, 1 << slot_bits> slots_{};
};

}  // namespace velmar::drawing::dxf
