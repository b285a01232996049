#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

namespace velmar::drawing {

/// Tells on which line of a text a byte stands, counting every stretch of it once: a file in which
/// all is wrong asks for each of its records.
class LineIndex {
 public:
  /// From 1. The text must be the same each time.
  std::uint64_t line_at(std::string_view text, std::size_t byte, char line_end) {
    const std::size_t stretch = byte / length;
    while (before_.size() <= stretch) {
      const std::size_t from = (before_.size() - 1) * length;
      before_.push_back(before_.back() + count(text.substr(from, length), line_end));
    }
    return 1 + before_[stretch] + count(text.substr(stretch * length, byte % length), line_end);
  }

 private:
  static constexpr std::size_t length = 1 << 14;

  static std::uint64_t count(std::string_view text, char line_end) {
    return static_cast<std::uint64_t>(std::count(text.begin(), text.end(), line_end));
  }

  std::vector<std::uint64_t> before_{0};  // line ends before each stretch
};

}  // namespace velmar::drawing
