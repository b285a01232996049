#include "basic/ansi.h"

#include <gtest/gtest.h>

#include "failing.h"

namespace velmar::basic {
namespace {

TEST(Ansi, CodesOfTheWesternPage) {
  const struct {
    char16_t unit;
    int code;
  } rows[] = {{u'A', 65},    {0, 0},        {u'é', 0xE9},      {u'ÿ', 0xFF},     {u'€', 0x80},
              {u'’', 0x92},  {u'Ÿ', 0x9F},  {u'\u00A0', 0xA0}, {u'Ā', '?'},      {u'Ω', '?'},
              {0xD83D, '?'}, {0xDE00, '?'}, {u'\u0080', '?'},  {u'\u0100', '?'}, {u'\u0141', '?'}};
  for (const auto& row : rows) EXPECT_EQ(ansi_code(row.unit), row.code);
  for (int code = 0; code <= 255; ++code) EXPECT_EQ(ansi_code(ansi_character(code)), code);
  EXPECT_EQ(failure_of([] { ansi_character(256); }), bad_argument);
  EXPECT_EQ(failure_of([] { ansi_character(-1); }), bad_argument);
}

}  // namespace
}  // namespace velmar::basic
