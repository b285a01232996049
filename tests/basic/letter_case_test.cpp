#include "basic/letter_case.h"

#include <gtest/gtest.h>

#include "basic/utf16.h"

namespace velmar::basic {
namespace {

TEST(LetterCase, CoversAllScriptsOneCharacterForOne) {
  const struct {
    const char *lower, *upper;
  } pairs[] = {{"door 42!", "DOOR 42!"},
               {"àéîõüÿ", "ÀÉÎÕÜŸ"},
               {"łžőđŋ", "ŁŽŐĐŊ"},
               {"αβγδώ", "ΑΒΓΔΏ"},
               {"жђѐґ", "ЖЂЀҐ"},
               {"աբգ", "ԱԲԳ"},
               {"ấệơư", "ẤỆƠƯ"},
               {"ａｚ", "ＡＺ"},
               {"𐐨", "𐐀"},
               {"ǆ", "Ǆ"},
               {"ⅷⓐ", "ⅧⒶ"}};
  for (const auto& pair : pairs) {
    EXPECT_EQ(upper(pair.lower), pair.upper);
    EXPECT_EQ(lower(pair.upper), pair.lower);
  }
  EXPECT_EQ(upper("straße ŉ ﬁ 中 @`{"), "STRAßE ŉ ﬁ 中 @`{");
  EXPECT_EQ(upper("iıς"), "IIΣ");
  EXPECT_EQ(lower("Iİẞ×ǅ["), "iiß×ǆ[");
  EXPECT_EQ(upper(std::string_view("a\0b\xFF", 4)), std::string("A\0B\uFFFD", 6));
}

TEST(LetterCase, NeverChangesTheLengthAndIsStable) {
  constexpr std::uint32_t block = 0x100, behind_the_last_letter = 0x1F000;
  for (std::uint32_t first = 0; first < behind_the_last_letter; first += block) {
    std::u16string units;
    for (std::uint32_t c = first; c < first + block; ++c) {
      if (c != 0x130 && c != 0x131) append(units, c);  // these two are not folded
    }
    const std::string text = to_utf8(units), up = upper(text), down = lower(text);
    ASSERT_EQ(to_utf16(text), units) << std::hex << first;
    ASSERT_EQ(to_utf16(up).size(), units.size()) << std::hex << first;
    ASSERT_EQ(to_utf16(down).size(), units.size()) << std::hex << first;
    ASSERT_EQ(upper(up), up) << std::hex << first;
    ASSERT_EQ(lower(down), down) << std::hex << first;
    ASSERT_EQ(folded(up), folded(down)) << std::hex << first;
  }
}

TEST(Proper, CapitalizesAfterSeparatorsOnly) {
  const struct {
    std::string_view text, expected;
  } rows[] = {
      {"", ""},
      {"hELLO wORLD", "Hello World"},
      {"o'neil-smith", "O'neil-smith"},
      {"ONE\tTWO", "One\tTwo"},
      {"a\vb\fc\rd\ne", "A\vB\fC\rD\nE"},
      {{"a\0b", 3}, {"A\0B", 3}},
      {"a\u00A0b", "A\u00A0b"},
      {"(hello) 3RD", "(hello) 3rd"},
      {"  élan ÄRGER", "  Élan Ärger"},
  };
  for (const auto& row : rows) EXPECT_EQ(proper(row.text), row.expected);
}

}  // namespace
}  // namespace velmar::basic
