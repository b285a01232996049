#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <unordered_map>

namespace velmar::drawing::dxf {

/// Remembers what byte strings stand for (names of kinds and layers, owners), so that one that came
/// lately costs a few comparisons of whole words, and no branch on its length. The texts must be
/// parts of one source, which outlives the cache.
template <class Meaning>
class ViewCache {
 public:
  explicit ViewCache(std::string_view source) : source_end_(source.data() + source.size()) {}

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
  /// The first eight bytes and the next, filled up with zeros; of a longer text the last eight. For
  /// 16 bytes or less these and the length are all there is to a text.
  struct Key {
    std::uint64_t head = 0, tail = 0;
  };
  struct Slot {
    Key key{0, 1};  // free: that of no text
    std::string_view text;
    Meaning meaning{};
  };
  static constexpr int slot_bits = 7;

  static std::uint64_t word_at(const char* at) {
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    return word;
  }
  Key key_of(std::string_view text) const {
    if (text.empty()) return {};
    const char* const begin = text.data();
    if (text.size() > 16) return {word_at(begin), word_at(begin + text.size() - 8)};
    if (source_end_ - begin >= 16) {
      return {word_at(begin) & kept[text.size()].head, word_at(begin + 8) & kept[text.size()].tail};
    }
    std::array<char, 16> filled{};
    std::memcpy(filled.data(), begin, text.size());
    return {word_at(filled.data()), word_at(filled.data() + 8)};
  }
  /// For each length the bits of the two words that belong to the text.
  static constexpr auto kept = [] {
    std::array<Key, 17> masks{};
    for (std::size_t size = 0; size <= 16; ++size) {
      std::array<std::uint8_t, 16> bytes{};
      std::fill_n(bytes.begin(), size, std::uint8_t{0xFF});
      masks[size] = std::bit_cast<Key>(bytes);
    }
    return masks;
  }();

  const char* source_end_;
  std::array<Slot, 1 << slot_bits> slots_{};
  std::unordered_map<std::string_view, Meaning> all_;
};

}  // namespace velmar::drawing::dxf
