#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

/// What a fuzzer, or replay.cpp, calls with an input. Ends the program where the input shows a
/// fault; what is merely refused is none.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace velmar::fuzz {

inline std::string text_of(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

/// Ends the program, telling what does not hold.
inline void expect(bool holds, std::string_view what) {
  if (holds) return;
  std::fprintf(stderr, "FAULT: %.*s\n", static_cast<int>(what.size()), what.data());
  std::abort();
}

/// What is refused with one of these is no fault.
template <class Refusal, class Action>
void where_allowed(Action action) {
  try {
    action();
  } catch (const Refusal&) {
  }
}

}  // namespace velmar::fuzz
