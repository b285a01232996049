#include <limits>

#include "called.h"

namespace velmar {
namespace {

constexpr double largest = std::numeric_limits<double>::max();

TEST(Range, MaxAndMinCompareAsBasicDoes) {
  expect_answers("MAX", {{{3.0, 7.0}, 7.0},
                         {{std::int16_t{7}, 3.0}, 7.0},
                         {{"9", "10"}, 9.0},
                         {{"9", 10.0}, 9.0},
                         {{10.0, "9"}, 9.0},
                         {{Empty{}, -5.0}, 0.0},
                         {{true, -2.0}, -1.0},
                         {{Null{}, 7.0}, 7.0}});
  expect_answers("MIN", {{{3.0, 7.0}, 3.0},
                         {{7.0, 3.0}, 3.0},
                         {{"9", "10"}, 10.0},
                         {{"9", 10.0}, 10.0},
                         {{Empty{}, 5.0}, 0.0},
                         {{"&H1F", "4"}, 31.0}});
  expect_refusals("MAX", {{{"x", 1.0}, basic::type_mismatch},
                          {{basic::Reference(), 1.0}, basic::type_mismatch},
                          {{basic::Doubles{1, 2, 3}, 1.0}, basic::type_mismatch},
                          {{1.0, Null{}}, basic::invalid_use_of_null}});
  expect_refusals("MIN", {{{"x", "y"}, basic::type_mismatch}, {{"x", 1.0}, 0}});
}

TEST(Range, AvrIsTheMiddle) {
  expect_answers("Avr", {{{3.0, 7.0}, 5.0}, {{7.0, 3.0}, 5.0}, {{"9", "10"}, 9.5}});
  expect_answers("Avr", {{{largest, largest}, largest}});
  expect_refusals("Avr", {{{largest, -largest}, basic::overflow}, {{1.0, "x"}, 13}});
}

TEST(Range, BtTakesTheBoundsInEitherOrderAndAnswersOne) {
  const std::int16_t yes = 1, no = 0;
  expect_answers("Bt", {{{5.0, 10.0, 1.0}, yes},
                        {{10.0, 1.0, 10.0}, yes},
                        {{1.0, 1.0, 10.0}, yes},
                        {{10.5, 1.0, 10.0}, no},
                        {{"5", 1.0, 10.0}, yes},
                        {{Empty{}, -1.0, 1.0}, yes},
                        {{Null{}, -1.0, 1.0}, no},
                        {{9.5, "9", "10"}, no}});  // as texts "9" is the upper bound
  expect_refusals(
      "Bt", {{{"x", 1.0, 10.0}, basic::type_mismatch}, {{Null{}, "x", "y"}, basic::type_mismatch}});
}

/// What rounding to a step answers, and what it makes of the caller's number.
struct Rounded {
  Value number;
  double step, expected;
  Value written_back;
};

void expect_rounded(std::string_view method, const std::vector<Rounded>& rows) {
  for (const Rounded& row : rows) {
    SCOPED_TRACE(testing::Message() << method << ", row " << &row - rows.data());
    Arguments arguments = {row.number, row.step};
    expect_same(called(method, arguments), row.expected);
    expect_same(arguments[0], row.written_back);
  }
}

TEST(RoundToStep, KeepsTheRuleForNegativeNumbersAndFractionalSteps) {
  expect_rounded("R", {{7.0, 5, 5, 7.0},
                       {8.0, 5, 10, 8.0},
                       {12.5, 5, 10, 12.0},
                       {13.5, 5, 15, 14.0},
                       {-8.0, 5, -5, -8.0},
                       {2.0, 4, 4, 2.0},       // the half goes up
                       {5.0, 2.5, 5, 5.0},     // 5 by 2 leaves 1, less than 1.25
                       {7.0, 3.5, 10.5, 7.0},  // 7 by 4 leaves 3, though 7 is a multiple
                       {7.0, -5, 0, 7.0},
                       {4.0, -5, -5, 4.0},
                       {Empty{}, 5, 0, 0.0}});
  expect_rounded("RUP", {{10.0, 5, 10, 10.0},
                         {11.0, 5, 15, 11.0},
                         {std::int16_t{-7}, 5, 0, std::int16_t{-7}},
                         {5.0, 2.5, 7.5, 5.0},
                         {7.0, 2.5, 7.5, 7.0},
                         {"10.6", 5, 15, 11.0}});
  expect_rounded("RDN", {{14.0, 5, 10, 14.0},
                         {std::int32_t{14}, 5, 10, std::int32_t{14}},
                         {-7.0, 5, -5, -7.0},
                         {5.0, 2.5, 5, 5.0},
                         {4.0, -5, 0, 4.0},
                         {2.5, 5, 0, 2.0}});
}

TEST(RoundToStep, FailsAfterTheCallersNumberIsRounded) {
  for (const char* method : {"R", "RUP", "RDN"}) {
    const struct {
      Value number;
      double step;
      int failure;
      Value written_back;
    } rows[] = {
        {7.5, 0.4, basic::division_by_zero, 8.0}, {7.5, -0.5, basic::division_by_zero, 8.0},
        {3e9 + 0.25, 5, basic::overflow, 3e9},    {"7.5", 3e9, basic::overflow, 8.0},
        {"7 m", 5, basic::type_mismatch, "7 m"},  {Null{}, 5, basic::invalid_use_of_null, Null{}},
    };
    for (const auto& row : rows) {
      SCOPED_TRACE(testing::Message() << method << ", row " << &row - rows);
      Arguments arguments = {row.number, row.step};
      EXPECT_EQ(failure_number_of(method, arguments), row.failure);
      expect_same(arguments[0], row.written_back);
    }
  }
}

TEST(RightTriangle, GivesTheMissingSide) {
  expect_answers("Dis", {{{3.0, 4.0}, 5.0}, {{"-3", "4"}, 5.0}, {{Empty{}, -2.0}, 2.0}});
  expect_refusals("Dis", {{{1e200, 0.0}, basic::overflow},
                          {{1.2e154, 1.2e154}, basic::overflow},
                          {{"x", 0.0}, basic::type_mismatch}});
  expect_answers("DisF", {{{5.0, 3.0}, 4.0}, {{3.0, 3.0}, 0.0}, {{-5.0, "4"}, 3.0}});
  expect_refusals("DisF", {{{3.0, 5.0}, basic::bad_argument},
                           {{3.0, -5.0}, basic::bad_argument},
                           {{1e200, 1e200}, basic::overflow}});
}

TEST(InverseTrigonometry, IsInDegreesAndDividesByZeroAtOne) {
  expect_answers("ArcSin", {{{0.5}, 30.0}, {{-0.5}, -30.0}, {{0.0}, 0.0}, {{2.0}, 0.0}});
  expect_answers("ArcCos", {{{0.5}, 60.0}, {{-0.5}, 120.0}, {{0.0}, 90.0}, {{-2.0}, 0.0}});
  for (const char* method : {"ArcSin", "ArcCos"}) {
    expect_refusals(method, {{{1.0}, basic::division_by_zero}, {{-1.0}, basic::division_by_zero}});
  }
}

TEST(Numbers, InTextsHaveTheUsersDecimalSeparator) {
  const auto comma = std::make_shared<CommaSystem>();
  const std::vector<std::pair<const char*, Answer>> rows = {
      {"MAX", {{"1,5", "1,25"}, 1.5}},
      {"MIN", {{2.0, "1,5"}, 2.0}},
      {"Avr", {{"1,5", "2,5"}, 2.0}},
      {"Dis", {{"1,5", 2.0}, 2.5}},
      {"DisF", {{2.5, "1,5"}, 2.0}},
      {"R", {{"13,5", 5.0}, 15.0}},
      {"RUP", {{"10,6", 5.0}, 15.0}},
      {"RDN", {{"14,4", 5.0}, 10.0}},
      {"Bt", {{"1,5", "1,25", "1,75"}, std::int16_t{1}}},
      {"GetNs", {{" 1.5"}, std::int16_t{2}}},  // this one reads a point everywhere
  };
  for (const auto& [method, row] : rows) {
    SCOPED_TRACE(method);
    Arguments arguments = row.arguments;
    expect_same(called(method, arguments, comma), row.expected);
  }
}

}  // namespace
}  // namespace velmar
