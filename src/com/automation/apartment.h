#pragma once

#include <ole2.h>

namespace velmar::com {

/// COM on this thread, as long as this lives, with calls coming in through its message loop.
class Apartment {
 public:
  Apartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() {
    if (entered_) CoUninitialize();
  }

 private:
  bool entered_;
};

}  // namespace velmar::com
