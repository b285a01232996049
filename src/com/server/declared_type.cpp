#include "com/server/declared_type.h"

#include <string>

namespace velmar::com {

basic::Value as_declared(const basic::Value& argument, ValueType type,
                         basic::Separators separators) {
  switch (type) {
    case ValueType::boolean:
      return basic::convert<bool>(argument, separators);
    case ValueType::int16:
      return basic::convert<std::int16_t>(argument, separators);
    case ValueType::int32:
      return basic::convert<std::int32_t>(argument, separators);
    case ValueType::number:
      return basic::convert<double>(argument, separators);
    case ValueType::text:
      return basic::convert<std::string>(argument, separators);
    case ValueType::none:
    case ValueType::variant:
      break;
  }
  return argument;
}

}  // namespace velmar::com
