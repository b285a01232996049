#include "component/method_table.h"

#include <algorithm>
#include <cstddef>

#include "basic/failure.h"
#include "basic/strings.h"
#include "component/method_rows.h"

namespace velmar {
namespace {

bool is_left_out(std::span<const Value> arguments, std::size_t i) {
  return i >= arguments.size() || arguments[i].is<basic::LeftOut>();
}

}  // namespace

std::span<const Method> methods() { return published::methods; }

const Method* find_method(std::string_view name) {
  const auto* row = std::ranges::find_if(published::methods, [&](const Method& method) {
    return basic::equal_ignoring_case(method.name, name);
  });
  return row == published::methods.end() ? nullptr : row;
}

Value call(Velmar16& velmar, const Method& method, std::span<Value> arguments) {
  if (arguments.size() > method.parameter_count) throw basic::Failure(basic::wrong_argument_count);
  for (std::size_t i = 0; i < method.parameter_count; ++i) {
    if (!method.parameter_list[i].optional && is_left_out(arguments, i)) {
      throw basic::Failure(basic::argument_not_optional);
    }
  }
  return method.invoke(velmar, arguments);
}

}  // namespace velmar
