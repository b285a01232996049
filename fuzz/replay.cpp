// In place of a fuzzer, for the tests: runs a target on saved inputs, then on random changes of
// them, the same at every run. `replay RUNS FILE-OR-FOLDER...`.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "target.h"

namespace {

using Input = std::string;

std::vector<Input> inputs_of(const std::vector<std::filesystem::path>& places) {
  std::vector<std::filesystem::path> paths;
  for (const auto& place : places) {
    if (std::filesystem::is_directory(place)) {
      for (const auto& entry : std::filesystem::directory_iterator(place)) paths.push_back(entry);
    } else {
      paths.push_back(place);
    }
  }
  std::sort(paths.begin(), paths.end());
  std::vector<Input> inputs;
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return inputs;
}

/// An input with stretches changed, lost, doubled, or taken from another one.
class Mutator {
 public:
  explicit Mutator(const std::vector<Input>& inputs) : inputs_(inputs) {}

  Input next() {
    Input input = any();
    for (std::size_t i = below(4); i < 4; ++i) change(input);
    return input;
  }

 private:
  std::size_t below(std::size_t count) { return count == 0 ? 0 : random_() % count; }
  const Input& any() { return inputs_[below(inputs_.size())]; }
  void change(Input& input) {
    const std::size_t at = below(input.size() + 1), length = below(40);
    switch (below(5)) {
      case 0:
        if (at < input.size()) input[at] = static_cast<char>(random_());
        break;
      case 1:
        input.erase(at, length);
        break;
      case 2:
        input.insert(at, Input(input, at, length));
        break;
      case 3:
        input.insert(at, length, "0129-.eE \n\r,"[below(12)]);
        break;
      default: {
        const Input& other = any();
        input.replace(at, length, other, below(other.size() + 1), below(400));
      }
    }
  }

  const std::vector<Input>& inputs_;
  std::mt19937 random_{1};
};

void run(const Input& input, const std::string& failed) {
  std::ofstream(failed, std::ios::binary) << input;  // stays there where this ends us
  // Exactly as long as the input, so that a sanitizer sees what reads beyond it.
  const std::vector<std::uint8_t> bytes(input.begin(), input.end());
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: %s RUNS FILE-OR-FOLDER...\n", argv[0]);
    return 2;
  }
  const std::vector<Input> inputs = inputs_of({argv + 2, argv + argc});
  velmar::fuzz::expect(!inputs.empty(), "there are no inputs");
  const std::string failed = std::filesystem::absolute(argv[0]).string() + ".failed";
  for (const Input& input : inputs) run(input, failed);
  Mutator mutator(inputs);
  const int runs = std::atoi(argv[1]);
  for (int i = 0; i < runs; ++i) run(mutator.next(), failed);
  std::filesystem::remove(failed);
  std::fprintf(stderr, "%zu inputs and %d changes of them\n", inputs.size(), runs);
  return 0;
}
