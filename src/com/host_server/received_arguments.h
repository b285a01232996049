#pragma once

#include <span>
#include <vector>

#include "com/automation/variant.h"
#include "host/member.h"

namespace velmar::com {

/// Which argument, in the caller's reversed order, cannot be read or written back, and why.
struct WrongArgument {
  HRESULT code;
  UINT position;
};

/// The arguments of one call that came in: read once, and written back where the caller gave a
/// reference and the call changed the value. Both fail with WrongArgument.
class ReceivedArguments {
 public:
  ReceivedArguments(host::Member method, DISPPARAMS& parameters, const ObjectBorder& border);

  std::span<basic::Value> values() { return values_; }
  void write_back();

 private:
  template <class Step>
  void each(Step step);

  DISPPARAMS& parameters_;
  const ObjectBorder& border_;
  std::vector<basic::Value> values_, received_;
};

}  // namespace velmar::com
