#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "basic/value.h"

namespace velmar {

class Velmar16;

enum class ValueType : std::uint8_t { none, variant, boolean, int16, int32, number, text };

enum class Subject : std::uint8_t { handles, calc, text, geometry, layers, measure, batch };

/// What becomes of a failing step.
enum class OnFailure : std::uint8_t {
  reaches_caller,  // it ends the method and is the caller's
  skips_step,      // the method goes on with its next step and never fails
  ends_quietly,    // it ends the method, which returns as usual
};

struct Parameter {
  std::string_view name;
  ValueType type = ValueType::none;
  bool by_reference = false;
  bool optional = false;
  bool is_colour = false;  // the host's enumeration of colour indexes
};

/// One published method. Everything that lists, calls or describes methods reads these.
struct Method {
  static constexpr std::size_t most_parameters = 9;
  using Invoke = basic::Value (*)(Velmar16&, std::span<basic::Value>);

  std::span<const Parameter> parameters() const {
    return std::span(parameter_list).first(parameter_count);
  }

  std::string_view name;
  std::uint32_t dispatch_id = 0;
  Subject subject{};
  OnFailure on_failure{};
  std::string_view help;  // one line
  ValueType result = ValueType::none;
  std::size_t parameter_count = 0;
  std::array<Parameter, most_parameters> parameter_list{};
  Invoke invoke = nullptr;  // without the checks of call(), which is the way to call
};

}  // namespace velmar
