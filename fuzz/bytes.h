#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace velmar::fuzz {

/// Decisions out of an input, one after the other; zeros when it has run out.
class Bytes {
 public:
  Bytes(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

  bool at_end() const { return next_ == end_; }
  std::uint8_t byte() { return at_end() ? std::uint8_t{0} : *next_++; }
  /// From 0 to below `count`, at most 65,535.
  std::size_t below(std::size_t count) {
    const std::size_t high = count > 256 ? byte() : 0;
    return (high << 8 | byte()) % count;
  }
  double number() {
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits = bits << 8 | byte();
    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
  }

 private:
  const std::uint8_t* next_;
  const std::uint8_t* end_;
};

}  // namespace velmar::fuzz
