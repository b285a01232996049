#include "basic/strings.h"

#include <gmock/gmock.h>

#include "failing.h"

namespace velmar::basic {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* smile = "\U0001F600";         // two units
constexpr const char* smile_high = "\xED\xA0\xBD";  // its halves
constexpr const char* smile_low = "\xED\xB8\x80";

TEST(Strings, PartsCountUtf16Units) {
  EXPECT_EQ(len(""), 0);
  EXPECT_EQ(len("äß€"), 3);
  EXPECT_EQ(len(smile), 2);
  EXPECT_EQ(left("plän.dwg", 4), "plän");
  EXPECT_EQ(left("abc", 9), "abc");
  EXPECT_EQ(left("abc", 0), "");
  EXPECT_EQ(right("a€", 1), "€");
  EXPECT_EQ(right("abc", 9), "abc");
  EXPECT_EQ(right("abc", 0), "");
  EXPECT_EQ(mid("äbcde", 2, 3), "bcd");
  EXPECT_EQ(mid("abc", 3, 4), "c");
  EXPECT_EQ(mid("abc", 4, 1), "");
  EXPECT_EQ(mid("abc", 2147483647, 2147483647), "");
  EXPECT_EQ(mid("abc", 2), "bc");
  EXPECT_EQ(mid(std::string_view("a\0b", 3), 2), std::string_view("\0b", 2));
  for (const int failure :
       {failure_of([] { left("abc", -1); }), failure_of([] { right("abc", -1); }),
        failure_of([] { mid("abc", 0, 1); }), failure_of([] { mid("abc", 1, -1); }),
        failure_of([] { mid("abc", 0); }), failure_of([] { left("", -1); })}) {
    EXPECT_EQ(failure, bad_argument);
  }
}

TEST(Strings, HalvesOfAPairSurviveAndMeetAgain) {
  EXPECT_EQ(left(smile, 1), smile_high);
  EXPECT_EQ(right(smile, 1), smile_low);
  const std::string rejoined = left(smile, 1) + mid(smile, 2) + "x";
  EXPECT_EQ(len(rejoined), 3);
  EXPECT_EQ(left(rejoined, 2), smile);
}

TEST(Strings, BytesThatAreNotUtf8CountOneEach) {
  const struct {
    std::string_view text;
    int length;
  } rows[] = {{"\xFF", 1},
              {"a\x80z", 3},
              {"\xC3", 1},
              {"\xE2\x82", 2},
              {"\xC0\x80", 2},
              {"\xE0\x80\x80", 3},
              {"\xF4\x90\x80\x80", 4},
              {"\xF0\x9F\x98", 3}};
  for (const auto& row : rows) {
    EXPECT_EQ(len(row.text), row.length);
    EXPECT_EQ(left(row.text, 1), row.text[0] == 'a' ? "a" : "\uFFFD");
  }
}

TEST(InStr, FindsFromAStart) {
  const struct {
    const char *text, *find;
    Compare compare;
    int start, expected;
  } rows[] = {
      {"WALLS-A", "A", Compare::binary, 1, 2},
      {"WALLS-A", "A", Compare::binary, 3, 7},
      {"abc", "C", Compare::binary, 1, 0},
      {"abc", "C", Compare::text, 1, 3},
      {"äÖü", "öÜ", Compare::text, 1, 2},
      {"ΟΔΟΣ", "οδος", Compare::text, 1, 1},
      {"", "", Compare::binary, 1, 0},
      {"", "a", Compare::binary, 1, 0},
      {"abc", "", Compare::binary, 1, 1},
      {"abc", "", Compare::text, 3, 3},
      {"abc", "", Compare::binary, 4, 0},
      {"abc", "c", Compare::binary, 9, 0},
      {"\U0001F600x", "x", Compare::binary, 1, 3},
      {"aaa", "aaaa", Compare::binary, 1, 0},
      {"Straße", "STRASSE", Compare::text, 1, 0},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(in_str(row.text, row.find, row.compare, row.start), row.expected)
        << row.text << row.find;
  }
  EXPECT_EQ(failure_of([] { in_str("abc", "a", Compare::binary, 0); }), bad_argument);
  EXPECT_TRUE(contains_ignoring_case("xaby", "AB"));
  EXPECT_FALSE(contains_ignoring_case("WALLS", "B"));
  EXPECT_TRUE(equal_ignoring_case("Größe", "GRÖßE"));
  EXPECT_FALSE(equal_ignoring_case("ı", "i"));
}

TEST(Strings, SplitAndJoin) {
  EXPECT_THAT(split("", "\\"), IsEmpty());
  EXPECT_THAT(split("", ""), IsEmpty());
  EXPECT_THAT(split("abc", ""), ElementsAre("abc"));
  EXPECT_THAT(split("abc", "X;"), ElementsAre("abc"));
  EXPECT_THAT(split("C:\\A\\", "\\"), ElementsAre("C:", "A", ""));
  EXPECT_THAT(split("X;X;", "X;"), ElementsAre("", "", ""));
  EXPECT_THAT(split("aaa", "aa"), ElementsAre("", "a"));
  EXPECT_EQ(join(split("a-b--c", "-"), "+"), "a+b++c");
  EXPECT_EQ(join({}, "-"), "");
}

TEST(Strings, ReplaceAndTrim) {
  EXPECT_EQ(replace("a.b.c", ".", "--"), "a--b--c");
  EXPECT_EQ(replace("a.b.c", ".", "", 1), "ab.c");
  EXPECT_EQ(replace("a.b", ".", "x", 0), "a.b");
  EXPECT_EQ(replace("aaa", "aa", "a"), "aa");  // what was put in is not searched again
  EXPECT_EQ(replace("abc", "", "x"), "abc");
  EXPECT_EQ(replace("abc", "B", "x"), "abc");
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trim("\t a\u00A0 "), "\t a\u00A0");
  EXPECT_EQ(trim("   "), "");
}

}  // namespace
}  // namespace velmar::basic
