#include "drawing/dxf/tag.h"

#include <gtest/gtest.h>

namespace velmar::drawing::dxf {
namespace {

Format text_format(const std::string& code_page) {
  Format format;
  format.code_page = code_page.empty() ? CodePage::utf8() : CodePage::named(code_page);
  return format;
}

TEST(TextValue, DecodesByCodePageAndEscapes) {
  struct Case {
    const char *code_page, *raw, *text;
  };
  const Case cases[] = {
      {"ANSI_1252", "trac\xE9", "tracé"},
      {"ANSI_932", "\x83\x8C\x83\x43", "レイ"},
      {"dos850", "\x9B", "ø"},
      {"", "größe", "größe"},
      {"ANSI_1252", R"(\U+00D8 12)", "Ø 12"},
      {"ANSI_1252", R"(\U+D83D\U+DE00)", "😀"},
      {"ANSI_1252", R"(\M+18356)", "シ"},
      {"ANSI_1252", R"(\U+00G8)", R"(\U+00G8)"},
      {"ANSI_1252", "one^Jtwo^ three^I^b", "one\ntwo^three\t^b"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(decode_text(c.raw, text_format(c.code_page)), c.text) << c.raw;
}

TEST(TextValue, EncodesWhatItDecodesAndEscapesWhatThePageLacks) {
  struct Case {
    const char *code_page, *text, *raw;
  };
  const Case cases[] = {
      {"ANSI_1252", "tracé", "trac\xE9"},       {"ANSI_1252", "Ω€", "\\U+03A9\x80"},
      {"ANSI_932", "レイ", "\x83\x8C\x83\x43"}, {"", "Ω", "Ω"},
      {"ANSI_1252", "😀", R"(\U+D83D\U+DE00)"},  {"ANSI_1252", "a\nb^c", "a^Jb^ c"},
  };
  for (const Case& c : cases) {
    const Format format = text_format(c.code_page);
    EXPECT_EQ(text_bytes(c.text, format), c.raw);
    EXPECT_EQ(decode_text(text_bytes(c.text, format), format), c.text);
  }
}

TEST(TextValue, KeepsBytesThatMeanNothing) {
  for (const char* page : {"ANSI_1252", "ANSI_932", ""}) {
    const Format format = text_format(page);
    for (const std::string raw : {"\x81", "a\xFF z", "\x8D\x9D"}) {
      EXPECT_EQ(text_bytes(decode_text(raw, format), format), raw) << page;
    }
  }
}

TEST(RealBytes, HaveAPointAndReadBackExactly) {
  const Format format;
  for (const double value : {0.0, 1.0, -2.5, 0.1, 1e300, 1e-300, 523020722.8743102, 1.0 / 3}) {
    const std::string text = real_bytes(value, format);
    EXPECT_NE(text.find_first_of(".e"), std::string::npos) << text;
    Tag tag;
    tag.code = 10;
    tag.value_end = static_cast<std::uint32_t>(text.size());
    EXPECT_EQ(real_value(text, tag, format), value);
  }
}

TEST(Values, ThatAreNoNumbersAreTold) {
  const Format format;
  const auto real = [&](std::string_view text) {
    Tag tag;
    tag.code = 40;
    tag.value_end = static_cast<std::uint32_t>(text.size());
    return real_value(text, tag, format);
  };
  for (const char* text : {"", " ", "abc", "1,5", "1.5x", "nan", "inf", "1e999", "--1"}) {
    EXPECT_FALSE(real(text)) << text;
  }
  for (const char* text : {"1", " 1.5 ", "+1.5", ".5", "1.", "1E5", "-0"})
    EXPECT_TRUE(real(text)) << text;
}

TEST(BinaryTags, ReadBackAsTheyWereWritten) {
  for (const bool wide : {true, false}) {
    Format format;
    format.binary = true;
    format.wide_codes = wide;
    std::string bytes;
    append_text(bytes, 0, "LINE", format);
    append_real(bytes, 10, -1.5, format);
    append_integer(bytes, 62, -7, format);
    append_integer(bytes, 90, 100'000, format);
    append_integer(bytes, 290, 1, format);
    append_text(bytes, 1000, "xdata", format);
    append_integer(bytes, 1071, -5, format);
    TagCursor cursor(bytes, format);
    Tag tag;
    ASSERT_TRUE(cursor.next(tag) && tag.code == 0 && tag.text(bytes) == "LINE");
    ASSERT_TRUE(cursor.next(tag) && real_value(bytes, tag, format) == -1.5);
    ASSERT_TRUE(cursor.next(tag) && integer_value(bytes, tag, format) == -7);
    ASSERT_TRUE(cursor.next(tag) && integer_value(bytes, tag, format) == 100'000);
    ASSERT_TRUE(cursor.next(tag) && integer_value(bytes, tag, format) == 1);
    ASSERT_TRUE(cursor.next(tag) && tag.code == 1000 && tag.text(bytes) == "xdata");
    ASSERT_TRUE(cursor.next(tag) && integer_value(bytes, tag, format) == -5);
    EXPECT_FALSE(cursor.next(tag) || cursor.damaged());
  }
}

}  // namespace
}  // namespace velmar::drawing::dxf
