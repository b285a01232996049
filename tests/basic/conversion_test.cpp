#include "basic/conversion.h"

#include <gtest/gtest.h>

#include "failing.h"

namespace velmar::basic {
namespace {

constexpr Separators continental{.decimal = ',', .group = '.'};

TEST(Number, ReadsATextOnlyWhenAllOfItIsANumber) {
  const struct {
    const char* text;
    double expected;
  } rows[] = {
      {"7", 7},           {"+7", 7},       {" \t-7.5 ", -7.5}, {".5", 0.5},     {"5.", 5},
      {"- 5", -5},        {"1E5", 100000}, {"1e5", 100000},    {"1D2", 100},    {"2d3", 2000},
      {"1E-2", 0.01},     {"1E-999", 0},   {"&H1F", 31},       {"&o17", 15},    {"&HFFFF", -1},
      {"&HFFFF&", 65535}, {" &H1F ", 31},  {"(5)", -5},        {" ( 5 ) ", -5}, {"5-", -5},
      {"5 - ", -5},       {"5+", 5},       {"1E5-", -100000},  {"1,234", 1234}, {"1,2,3.5", 123.5},
      {"1,", 1},          {"0012", 12},
  };
  for (const auto& row : rows) EXPECT_EQ(number(row.text), row.expected) << row.text;

  for (const char* text :
       {"",   " ",   "abc",   "1A5", "12ab", "1 2",  "1.2.3", ".",     "-",   "()",
        "(5", "5)",  "(-5)",  "-5-", "--5",  "1E",   "1E+",   "1E2.5", "E5",  ",5",
        "&H", "&HG", "&H1 F", "&X1", "$5",   "True", "1E5x",  "5%",    "1E 5"}) {
    EXPECT_EQ(failure_of([&] { number(text); }), type_mismatch) << text;
  }
  EXPECT_EQ(failure_of([] { number("9E999"); }), overflow);
  EXPECT_EQ(failure_of([] { number("3E400"); }), overflow);
}

TEST(Number, UsesTheSeparatorsOfTheLocale) {
  EXPECT_EQ(number("1,5", continental), 1.5);
  EXPECT_EQ(number("1.5", continental), 15);
  EXPECT_EQ(number("1.234,5", continental), 1234.5);
  EXPECT_EQ(failure_of([] { number("1.5", {.decimal = ',', .group = ' '}); }), type_mismatch);
  EXPECT_EQ(number("1 234,5", {.decimal = ',', .group = ' '}), 1234.5);
}

TEST(Conversion, OfWhatIsNoText) {
  EXPECT_EQ(number(Empty{}), 0);
  EXPECT_EQ(number(true), -1);
  EXPECT_EQ(number(std::int16_t{-7}), -7);
  EXPECT_EQ(text(Empty{}), "");
  EXPECT_EQ(text(true), "True");
  EXPECT_EQ(text(std::int32_t{-2147483647 - 1}), "-2147483648");
  EXPECT_EQ(text(0.5, continental), "0,5");

  const Value object = Reference();
  EXPECT_EQ(failure_of([] { number(Null{}); }), invalid_use_of_null);
  EXPECT_EQ(failure_of([] { text(Null{}); }), invalid_use_of_null);
  EXPECT_EQ(failure_of([] { boolean(Null{}); }), invalid_use_of_null);
  EXPECT_EQ(failure_of([&] { number(object); }), type_mismatch);
  EXPECT_EQ(failure_of([&] { text(object); }), no_such_member);
  for (const Value& value : {Value(LeftOut{}), Value(Doubles{1}), Value(List{1.0})}) {
    EXPECT_EQ(failure_of([&] { number(value); }), type_mismatch);
    EXPECT_EQ(failure_of([&] { text(value); }), type_mismatch);
  }
}

TEST(Boolean, TakesWordsAndNumbers) {
  for (const Value& value : {Value("tRUE"), Value("1"), Value("-0.1"), Value(0.1), Value(true)}) {
    EXPECT_TRUE(boolean(value));
  }
  for (const Value& value : {Value("False"), Value("0.0"), Value(-0.0), Value(Empty{})}) {
    EXPECT_FALSE(boolean(value));
  }
  EXPECT_EQ(failure_of([] { boolean(""); }), type_mismatch);
  EXPECT_EQ(failure_of([] { boolean("yes"); }), type_mismatch);
}

TEST(Convert, ToEachType) {
  EXPECT_EQ(convert<std::int16_t>("2.5"), 2);
  EXPECT_EQ(convert<std::int32_t>(3.5), 4);
  EXPECT_EQ(failure_of([] { convert<std::int16_t>(std::int32_t{32768}); }), overflow);
  EXPECT_EQ(convert<std::string>(std::int16_t{5}), "5");
  EXPECT_EQ(convert<Value>(Null{}), Value(Null{}));
  EXPECT_EQ(convert<Doubles>(Doubles{1, 2, 3}), (Doubles{1, 2, 3}));
  EXPECT_EQ(convert<Doubles>(List{1.5, std::int16_t{2}, "3"}), (Doubles{1.5, 2, 3}));
  EXPECT_EQ(failure_of([] { convert<Doubles>(1.5); }), type_mismatch);
  EXPECT_EQ(failure_of([] { convert<Doubles>(List{List{}}); }), type_mismatch);
  const auto object = std::make_shared<Referenced>();
  EXPECT_EQ(convert<Reference>(object), object);
  EXPECT_EQ(failure_of([] { convert<Reference>(Empty{}); }), object_required);
}

}  // namespace
}  // namespace velmar::basic
