#pragma once

#include <ole2.h>

#include <string>
#include <string_view>
#include <utility>

namespace velmar::com {

/// The one place where UTF-8 becomes the system's UTF-16 and back. Neither fails.
std::wstring to_wide(std::string_view text);
std::string to_utf8(std::wstring_view text);

/// Owns an automation string.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::string_view utf8);
  Bstr(Bstr&& other) noexcept : text_(other.release()) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  ~Bstr() { SysFreeString(text_); }

  static Bstr taking(BSTR text) {
    Bstr taken;
    taken.text_ = text;
    return taken;
  }

  BSTR get() const { return text_; }
  /// For a call that hands out a string.
  BSTR* put() {
    *this = Bstr();
    return &text_;
  }
  BSTR release() { return std::exchange(text_, nullptr); }

 private:
  BSTR text_ = nullptr;
};

/// Null is the empty text.
std::string to_utf8(BSTR text);

}  // namespace velmar::com
