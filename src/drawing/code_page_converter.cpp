#include "drawing/code_page_converter.h"

#include <iconv.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <mutex>

namespace velmar::drawing {
namespace {

class Iconv {
 public:
  Iconv(const char* to, const char* from) : converter_(::iconv_open(to, from)) {}
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;
  ~Iconv() {
    if (valid()) ::iconv_close(converter_);
  }
  bool valid() const { return reinterpret_cast<std::intptr_t>(converter_) != -1; }

  bool convert(std::string_view& input, std::string& output) const {
    const std::lock_guard lock(mutex_);
    ::iconv(converter_, nullptr, nullptr, nullptr, nullptr);
    while (!input.empty()) {
      std::array<char, 512> buffer{};
      char* in = const_cast<char*>(input.data());
      std::size_t in_left = input.size();
      char* out = buffer.data();
      std::size_t out_left = buffer.size();
      const std::size_t result = ::iconv(converter_, &in, &in_left, &out, &out_left);
      const bool moved = in_left != input.size() || out_left != buffer.size();
      output.append(buffer.data(), buffer.size() - out_left);
      input = {in, in_left};
      if (result == static_cast<std::size_t>(-1) && (errno != E2BIG || !moved)) return false;
    }
    return true;
  }

 private:
  mutable std::mutex mutex_;
  iconv_t converter_;
};

class IconvConverter : public CodePageConverter {
 public:
  explicit IconvConverter(const char* name) : to_utf8_("UTF-8", name), from_utf8_(name, "UTF-8") {}
  bool valid() const { return to_utf8_.valid() && from_utf8_.valid(); }
  bool to_utf8(std::string_view& input, std::string& output) const override {
    return to_utf8_.convert(input, output);
  }
  bool from_utf8(std::string_view& input, std::string& output) const override {
    return from_utf8_.convert(input, output);
  }

 private:
  Iconv to_utf8_, from_utf8_;
};

}  // namespace

std::shared_ptr<const CodePageConverter> open_converter(const std::string& name) {
  auto converter = std::make_shared<const IconvConverter>(name.c_str());
  if (!converter->valid()) return nullptr;
  return converter;
}

}  // namespace velmar::drawing
