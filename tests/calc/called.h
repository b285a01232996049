#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string_view>
#include <vector>

#include "basic/failure.h"
#include "component/failure_of.h"
#include "component/method_table.h"

namespace velmar {

using basic::Null;
using Arguments = std::vector<Value>;

/// A machine whose numbers have a decimal comma.
class CommaSystem : public PlainSystem {
 public:
  basic::Separators separators() const override { return {.decimal = ',', .group = '.'}; }
};

/// Calls a method as a macro does; what it writes back is in `arguments` afterwards.
inline Value called(std::string_view method, Arguments& arguments,
                    std::shared_ptr<System> system = std::make_shared<PlainSystem>()) {
  Velmar16 velmar(std::move(system));
  return call(velmar, *find_method(method), arguments);
}

/// The number of the failure that the method ends with, 0 for none.
inline int failure_number_of(std::string_view method, Arguments& arguments) {
  return failure_number([&] { called(method, arguments); });
}

/// Doubles as closely as they can be computed, all else exactly, types included.
inline void expect_same(const Value& actual, const Value& expected) {
  const auto *number = actual.if_is<double>(), *wanted = expected.if_is<double>();
  if (number && wanted) {
    EXPECT_DOUBLE_EQ(*number, *wanted);
    EXPECT_EQ(std::signbit(*number), std::signbit(*wanted));
  } else {
    EXPECT_TRUE(actual == expected) << testing::PrintToString(actual);
  }
}

struct Answer {
  Arguments arguments;
  Value expected;
};

inline void expect_answers(std::string_view method, const std::vector<Answer>& rows) {
  for (const Answer& row : rows) {
    SCOPED_TRACE(testing::Message() << method << ", row " << &row - rows.data());
    Arguments arguments = row.arguments;
    expect_same(called(method, arguments), row.expected);
  }
}

struct Refusal {
  Arguments arguments;
  int number;
};

inline void expect_refusals(std::string_view method, const std::vector<Refusal>& rows) {
  for (const Refusal& row : rows) {
    Arguments arguments = row.arguments;
    EXPECT_EQ(failure_number_of(method, arguments), row.number)
        << method << ", row " << &row - rows.data();
  }
}

}  // namespace velmar
