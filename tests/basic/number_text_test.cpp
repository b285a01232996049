#include "basic/number_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmar::basic {
namespace {

TEST(General, WritesTheShortestForm) {
  const struct {
    double number;
    const char* expected;
  } rows[] = {
      {0, "0"},
      {-0.0, "0"},
      {5, "5"},
      {-5, "-5"},
      {0.5, "0.5"},
      {-0.25, "-0.25"},
      {100, "100"},
      {1234.568, "1234.568"},
      {2.002, "2.002"},
      // 15 digits, no more
      {0.1 + 0.2, "0.3"},
      {1.0 / 3, "0.333333333333333"},
      {2.0 / 3, "0.666666666666667"},
      {123456789.123456789, "123456789.123457"},
      {-1e-300, "-1E-300"},
      {0.99999999999999999, "1"},
      {999999.9999999999, "1000000"},
      // large
      {123456789012345, "123456789012345"},
      {999999999999999, "999999999999999"},
      {1e14, "100000000000000"},
      {1e15, "1E+15"},
      {1234567890123456, "1.23456789012346E+15"},
      {999999999999999.9, "1E+15"},
      {1e100, "1E+100"},
      {-1.5e20, "-1.5E+20"},
      {1.7976931348623157e308, "1.79769313486232E+308"},
      // small
      {0.0001, "0.0001"},
      {0.000123456789012345, "0.000123456789012345"},
      {0.00001, "0.00001"},
      {0.000015, "0.000015"},
      {1.23456789012345e-5, "1.23456789012345E-05"},
      {1.2345678901e-5, "0.000012345678901"},
      {1.23456789012e-5, "1.23456789012E-05"},
      {1e-14, "0.00000000000001"},
      {1.5e-14, "0.000000000000015"},
      {1.25e-14, "1.25E-14"},
      {1e-15, "1E-15"},
      {1.5e-15, "1.5E-15"},
      {-1.00000000000003e-8, "-1.00000000000003E-08"},
      {5e-324, "4.94065645841247E-324"},
      {std::numeric_limits<double>::infinity(), "1.#INF"},
      {-std::numeric_limits<double>::infinity(), "-1.#INF"},
      {std::numeric_limits<double>::quiet_NaN(), "-1.#IND"},
  };
  for (const auto& row : rows) EXPECT_EQ(general(row.number), row.expected);
}

TEST(General, UsesTheDecimalMarkOfTheLocaleAndNeverGroups) {
  const Separators continental{.decimal = ',', .group = '.'};
  EXPECT_EQ(general(1234567.5, continental), "1234567,5");
  EXPECT_EQ(general(-1.00000000000003e-8, continental), "-1,00000000000003E-08");
}

}  // namespace
}  // namespace velmar::basic
