#pragma once

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "basic/failure.h"
#include "basic/value.h"
#include "component/system.h"
#include "host/object.h"

namespace velmar {

/// What came out of a call of a method.
struct Outcome {
  basic::Value result;
  std::vector<basic::Value> arguments;  // after the call
  std::optional<basic::Failure> failure;
};

/// One object of the class, and the way to call its methods by their published names. The scenes
/// are run directly and, in the Windows test programs, over COM; what they expect is the same.
class Caller {
 public:
  virtual ~Caller() = default;
  virtual Outcome call(std::string_view method, std::vector<basic::Value> arguments) = 0;
  /// What the methods see of the machine.
  virtual System& system() = 0;
};

/// Made by the one file of the test program that knows the way. The methods drive this host.
std::unique_ptr<Caller> make_caller(std::shared_ptr<host::Object> host);

}  // namespace velmar
