#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace velmar::drawing::dxf {

/// Lines whose bytes are known beforehand, up to eight bytes a word: a place is compared with all
/// of them at once.
template <std::size_t words>
class KnownLines {
 public:
  /// Lines that are nowhere; those of more bytes than there is room for are likewise.
  KnownLines() = default;
  explicit KnownLines(std::string_view lines) {
    if (lines.empty() || lines.size() > capacity) return;
    size_ = lines.size();
    std::memcpy(bytes_.data(), lines.data(), size_);
    std::memset(mask_.data(), 0xFF, size_);
  }

  /// Whether they stand there; if so, goes behind them. Near the end of the text, where fewer bytes
  /// follow than there is room for, the answer is no.
  [[gnu::always_inline]] bool pass(const char*& at, const char* end) const {
    if (size_ == 0 || end - at < static_cast<std::ptrdiff_t>(capacity)) return false;
    std::array<std::uint64_t, words> there;
    std::memcpy(there.data(), at, capacity);
    std::uint64_t difference = 0;
#pragma GCC unroll 4
    for (std::size_t i = 0; i < words; ++i) difference |= (there[i] ^ bytes_[i]) & mask_[i];
    if (difference != 0) return false;
    at += size_;
    return true;
  }

 private:
  static constexpr std::size_t capacity = words * sizeof(std::uint64_t);

  std::array<std::uint64_t, words> bytes_{}, mask_{};
  std::size_t size_ = 0;
};

}  // namespace velmar::drawing::dxf
