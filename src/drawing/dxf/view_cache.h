#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <unordered_map>

namespace velmar::drawing::dxf {

/// Remembers what byte strings stand for (names of kinds and layers, owners), so that one that came
/// lately costs a few comparisons of whole words. The views must outlive the cache.
template <class Meaning>
class ViewCache {
 public:
  /// The meaning of `text`: remembered, or found by `look_up(text)`.
  template <class LookUp>
  Meaning get(std::string_view text, LookUp look_up) {
    const Key key = key_of(text);
    const std::uint64_t mixed = (key.head ^ (key.tail << 1) ^ text.size()) * 0x9E3779B97F4A7C15u;
    Slot& slot = slots_[static_cast<std::size_t>(mixed >> (64 - slot_bits))];
    if (slot.key.head == key.head && slot.key.tail == key.tail && slot.text.size() == text.size() &&
        (text.size() <= 16 || slot.text == text)) {
      return slot.meaning;
    }
    const auto [known, is_new] = all_.try_emplace(text);
    if (is_new) known->second = look_up(text);
    if (!text.empty()) slot = {key, text, known->second};
    return known->second;
  }

 private:
  /// The first and the last eight bytes; for 16 bytes or less these and the length are all there is
  /// to a text.
  struct Key {
    std::uint64_t head = 0, tail = 0;
  };
  struct Slot {
    Key key{0, 1};  // free: that of no text
    std::string_view text;
    Meaning meaning{};
  };
  static constexpr int slot_bits = 7;

  template <class Word>
  static std::uint64_t load(const char* at) {
    Word word{};
    std::memcpy(&word, at, sizeof word);
    return word;
  }
  static Key key_of(std::string_view text) {
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    if (text.size() >= 8) return {load<std::uint64_t>(begin), load<std::uint64_t>(end - 8)};
    if (text.size() >= 4) return {load<std::uint32_t>(begin), load<std::uint32_t>(end - 4)};
    if (text.size() >= 2) return {load<std::uint16_t>(begin), load<std::uint16_t>(end - 2)};
    return text.empty() ? Key{} : Key{load<std::uint8_t>(begin), 0};
  }

  std::array<Slot, 1 << slot_bits> slots_{};
  std::unordered_map<std::string_view, Meaning> all_;
};

}  // namespace velmar::drawing::dxf
