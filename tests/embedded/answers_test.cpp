#include "embedded/answers.h"

#include <gtest/gtest.h>

#include <numbers>
#include <string>

#include "embedded/keywords.h"
#include "embedded/wildcard.h"

namespace velmar::embedded {
namespace {

using drawing::Point;
using std::numbers::pi;

TEST(Answers, RealNumbersInPlainExponentAndFractionForm) {
  const std::pair<const char*, std::optional<double>> rows[] = {
      {"12", 12},    {" -1.5 ", -1.5}, {"+.5", .5},     {"1.", 1},        {"1.5e3", 1500},
      {"2E-2", .02}, {"1/2", .5},      {"1-1/2", 1.5},  {"-1-1/2", -1.5}, {"-3/4", -.75},
      {"", {}},      {"-", {}},        {"--1", {}},     {"1 2", {}},      {"12ab", {}},
      {"1/0", {}},   {"1/", {}},       {"/2", {}},      {"1-", {}},       {"1.5/2", {}},
      {"1/2-1", {}}, {"1,5", {}},      {"inf", {}},     {"nan", {}},      {"0x10", {}},
      {"1e", {}},    {"1e999", {}},    {"-1--1/2", {}},
  };
  for (const auto& [text, number] : rows) EXPECT_EQ(read_real(text), number) << text;
}

TEST(Answers, IntegersOf16Bits) {
  const std::pair<const char*, std::optional<std::int16_t>> rows[] = {
      {"0", 0},
      {"-32768", -32768},
      {"+32767", 32767},
      {"32768", {}},
      {"-32769", {}},
      {"1.0", {}},
      {"1e2", {}},
      {"4/2", {}},
      {"", {}},
      {"-", {}},
      {"99999999999999999999", {}},
  };
  for (const auto& [text, number] : rows) EXPECT_EQ(read_integer(text), number) << text;
}

TEST(Answers, AnglesInRadiansWithinOneTurn) {
  const std::pair<const char*, double> rows[] = {
      {"90", pi / 2}, {"-90", 1.5 * pi}, {"450", pi / 2},    {"360", 0},
      {"1r", 1},      {"100g", pi / 2},  {"22-1/2", pi / 8},
  };
  for (const auto& [text, angle] : rows) {
    ASSERT_TRUE(read_angle(text)) << text;
    EXPECT_NEAR(*read_angle(text), angle, 1e-12) << text;
  }
  for (const char* text : {"", "r", "1,2", "ninety"}) EXPECT_FALSE(read_angle(text)) << text;
}

TEST(Answers, PointsAbsoluteRelativeAndPolar) {
  const Point from{10, 20, 5};
  const std::pair<const char*, std::optional<Point>> rows[] = {
      {"1,2", Point{1, 2, 0}},
      {" 1 , -2.5e1 , 3 ", Point{1, -25, 3}},
      {"1/2,1-1/2", Point{.5, 1.5, 0}},
      {"@1,2", Point{11, 22, 5}},
      {"@1,2,3", Point{11, 22, 8}},
      {"@", from},
      {"5<0", Point{5, 0, 0}},
      {"@5<90", Point{10, 25, 5}},
      {"@5<-90", Point{10, 15, 5}},
      {"1", {}},
      {"1,", {}},
      {",1", {}},
      {"1,2,3,4", {}},
      {"1;2", {}},
      {"@5<", {}},
      {"<5", {}},
      {"@x,1", {}},
      {"", {}},
  };
  for (const auto& [text, point] : rows) {
    const auto read = read_point(text, from);
    ASSERT_EQ(read.has_value(), point.has_value()) << text;
    EXPECT_LT(norm(read.value_or(from) - point.value_or(from)), 1e-12) << text;
  }
}

TEST(Answers, TwoCornersTheSecondAlsoRelative) {
  const auto corners = read_corners("  1,2   @3,4 ");
  ASSERT_TRUE(corners);
  EXPECT_EQ(corners->first, (Point{1, 2, 0}));
  EXPECT_EQ(corners->second, (Point{4, 6, 0}));
  for (const char* text : {"1,2", "1,2 3", "@1,2 3,4", "1,2 3,4 5,6", ""}) {
    EXPECT_FALSE(read_corners(text)) << text;
  }
}

TEST(Answers, Handles) {
  const std::pair<const char*, std::optional<drawing::Handle>> rows[] = {
      {"#2F", 0x2F},
      {"#2f", 0x2F},
      {"(handent \"2F\")", 0x2F},
      {" (HANDENT \"a\" ) ", 10},
      {"2F", {}},
      {"#", {}},
      {"#2G", {}},
      {"#0", {}},
      {"(handent 2F)", {}},
      {"(handent \"2F\"", {}},
      {"(handent \")", {}},
      {"(handent)", {}},
  };
  for (const auto& [text, handle] : rows) EXPECT_EQ(read_handle(text), handle) << text;
}

TEST(Keywords, AreFoundByTheWholeTheCapitalsOrAUniqueBeginning) {
  const Keywords keywords(" LType eXit  toP Undo Unite ");
  const std::pair<const char*, std::optional<std::string>> whole_or_capitals[] = {
      {"ltype", "LType"}, {"lt", "LType"}, {"x", "eXit"}, {"TOP", "toP"}, {"p", "toP"},
      {"l", {}},          {"", {}},        {"exi", {}},   {"u", "Undo"},
  };
  for (const auto& [typed, word] : whole_or_capitals)
    EXPECT_EQ(keywords.find(typed), word) << typed;
  const std::pair<const char*, std::optional<std::string>> beginnings[] = {
      {"L", "LType"}, {"un", {}}, {"uni", "Unite"}, {"undone", {}}, {"", {}},
  };
  for (const auto& [typed, word] : beginnings) {
    EXPECT_EQ(keywords.find_by_beginning(typed), word) << typed;
  }
  EXPECT_EQ(Keywords("U L T").in_words(), "U, L or T");
}

TEST(Wildcards, StarsQuestionMarksAndAlternatives) {
  struct Row {
    const char *patterns, *text;
    bool match;
  };
  const Row rows[] = {
      {"TEXT", "text", true},
      {"*TEXT", "MTEXT", true},
      {"TEXT", "MTEXT", false},
      {"LINE,*TEXT", "MTEXT", true},
      {"LINE, ARC", "ARC", true},
      {"?TEXT", "TEXT", false},
      {"A*B*C", "AxBxBxC", true},
      {"A*B*C", "AxCxB", false},
      {"*", "", true},
      {"", "", true},
      {"", "A", false},
      {"A**", "A", true},
      {"a?c", "abc", true},
      {"*1", "wall-11", true},
      {"*12", "wall-112", true},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(matches(row.patterns, row.text), row.match) << row.patterns << " / " << row.text;
  }
}

}  // namespace
}  // namespace velmar::embedded
