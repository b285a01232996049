#include "basic/val.h"

#include <gtest/gtest.h>

#include "failing.h"

namespace velmar::basic {
namespace {

TEST(Val, ReadsWhatStandsInFront) {
  const struct {
    std::string_view text;
    double expected;
  } rows[] = {
      // no number, or one that ends early
      {"", 0},
      {"   ", 0},
      {"abc", 0},
      {"-", 0},
      {".", 0},
      {" 12ab", 12},
      {"12ab", 12},
      {" 200", 200},
      {"1,5", 1},
      {"1.5.7", 1.5},
      {"12-3", 12},
      {"--5", 0},
      {"+-5", 0},
      // blanks
      {"1 2 3", 123},
      {"1\t2\r\n3", 123},
      {"- 5", -5},
      {"1 . 5", 1.5},
      {"\t\n\r 7", 7},
      {"\u30008", 8},
      {"\v9", 0},
      {"\u00A09", 0},
      // the point
      {"16.2", 16.2},
      {" 16.", 16},
      {".5", 0.5},
      {"-.5", -0.5},
      {"5.", 5},
      // exponents
      {"1E5", 1e5},
      {"2d3", 2000},
      {"3D 2", 300},
      {"3D", 3},
      {"1E", 1},
      {"1E+", 1},
      {"1E-2", 0.01},
      {"1 E - 2", 0.01},
      {"1E5E2", 1e5},
      {"1E2.5", 100},
      {"E5", 0},
      {"1.5e3x", 1500},
      {"1E-999", 0},
      {"0E999", 0},
      {"-1E-99999999999999999999", 0},
      {"1.7976931348623157E308", 1.7976931348623157e308},
      // all digits of a long number count
      {"0.1000000000000000055511151231257827", 0.1},
      {"9007199254740993", 9007199254740992.0},
  };
  for (const auto& row : rows) EXPECT_EQ(val(row.text), row.expected) << row.text;
}

TEST(Val, ReadsHexadecimalAndOctalAsOldIntegers) {
  const struct {
    std::string_view text;
    double expected;
  } rows[] = {
      {"&H1F", 31},
      {"&hff", 255},
      {"&O17", 15},
      {" &H 1 F g", 31},
      {"&O18", 1},
      {"&H1G", 1},
      {"&H", 0},
      {"&", 0},
      {"&X1", 0},
      {"& H1", 0},
      {"-&H1", 0},
      {"&12", 0},
      {"&H80", 128},
      {"&H7FFF", 32767},
      {"&H8000", -32768},
      {"&HFFFF", -1},
      {"&H00FF", 255},
      {"&H8000&", 32768},
      {"&HFFFF&", 65535},
      {"&HFFFF%", -1},
      {"&H10000", 65536},
      {"&H0FFFF", -1},
      {"&HFFFFFFFF", -1},
      {"&H80000000", -2147483648.0},
      {"&O177777", -1},
      {"&O100000&", 32768},
      {"&O37777777777", -1},
  };
  for (const auto& row : rows) EXPECT_EQ(val(row.text), row.expected) << row.text;
  EXPECT_EQ(failure_of([] { val("&H123456789"); }), overflow);
  EXPECT_EQ(failure_of([] { val("&HFFFFFFFFFFFFFFFFFFFFFFFF"); }), overflow);
  EXPECT_EQ(failure_of([] { val("&H10000%"); }), overflow);
}

TEST(Val, ObeysATypeCharacterUnlessToldToIgnoreIt) {
  const struct {
    std::string_view text;
    int failure;
    double checked, ignored;
  } rows[] = {
      {"10%", 0, 10, 10},
      {"10.00%", type_mismatch, 0, 10},
      {"1.5&", type_mismatch, 0, 1.5},
      {"32767%", 0, 32767, 32767},
      {"32768%", overflow, 0, 32768},
      {"9E9%", overflow, 0, 9e9},
      {"32768&", 0, 32768, 32768},
      {"2147483648&", overflow, 0, 2147483648.0},
      {"25E-1%", 0, 2, 2.5},
      {"1.5!", 0, 1.5, 1.5},
      {"1.5#", 0, 1.5, 1.5},
      {"1.5@", 0, 1.5, 1.5},
      {"1.5x%", 0, 1.5, 1.5},
      {"%", 0, 0, 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(failure_of([&] { EXPECT_EQ(val(row.text), row.checked); }), row.failure) << row.text;
    EXPECT_EQ(val(row.text, TypeCharacter::ignored), row.ignored) << row.text;
  }
}

TEST(Val, OverflowsBeyondADouble) {
  for (const std::string_view text : {"9E999", "-1.8E308", "1E99999999999999999999"}) {
    EXPECT_EQ(failure_of([&] { val(text); }), overflow) << text;
  }
}

}  // namespace
}  // namespace velmar::basic
