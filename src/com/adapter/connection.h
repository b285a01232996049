#pragma once

#include <memory>

#include "com/adapter/dispatch_ids.h"
#include "com/automation/variant.h"

namespace velmar::com {

/// What all objects of one host have in common, on one thread.
class Connection : public ObjectBorder, public std::enable_shared_from_this<Connection> {
 public:
  /// A host's object as one of ours. Each has a wrapper of its own.
  basic::Reference inward(IDispatch& object) const override;
  /// Fails with error 13 for an object that is not of an automation host.
  ComPtr<IDispatch> outward(const basic::Reference& object) const override;

  /// Repeats a call that the host refuses because it is busy, for about two seconds.
  template <class Call>
  HRESULT patiently(Call call) {
    HRESULT code = call();
    for (unsigned pause = first_pause; is_busy(code) && pause <= last_pause; pause *= 2) {
      wait(pause);
      code = call();
    }
    if (is_gone(code)) gone = true;
    return code;
  }

  KnownTypes types;
  bool out_as_variants = false;  // the host wants all out-arguments so
  bool gone = false;             // its process has ended, or it has closed the connection
  unsigned erasures = 0;         // calls that may have erased objects

 private:
  static constexpr unsigned first_pause = 30, last_pause = 960;  // milliseconds

  static bool is_busy(HRESULT code);
  static bool is_gone(HRESULT code);
  static void wait(unsigned milliseconds);
};

}  // namespace velmar::com
