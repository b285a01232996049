#include "called.h"

namespace velmar {
namespace {

TEST(LetterCase, AnswersAndWritesBack) {
  const struct {
    const char *method, *text, *expected;
  } rows[] = {
      {"UpperCase", "Straße 5 äé я ÿ", "STRAßE 5 ÄÉ Я Ÿ"},
      {"LowerCase", "ÄÉ Я Hello 5", "äé я hello 5"},
      {"TitleCase", "hELLO wORLD", "Hello World"},
      {"TitleCase", "o'neil-smith\telm\nash", "O'neil-smith\tElm\nAsh"},
      {"TitleCase", "élan ÄRGER", "Élan Ärger"},
      {"ReverseCase", "Hello World 42", "hELLO wORLD 42"},
      {"ReverseCase", "@AZ[`az{", "@az[`AZ{"},
      {"ReverseCase", "é Ä €™ß", "é Ä €™ß"},
      {"ReverseCase", "aЯb😀", "A?B??"},  // the last character is a pair of units
      {"UpperCase", "", ""},
      {"LowerCase", "", ""},
      {"TitleCase", "", ""},
      {"ReverseCase", "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::Message() << row.method << " of " << row.text);
    Arguments arguments = {row.text};
    EXPECT_EQ(*called(row.method, arguments).if_is<std::string>(), row.expected);
    EXPECT_EQ(arguments[0], Value(row.expected));
  }
}

TEST(GetNs, ReadsOneSliceToTheRightOfTheFirstNumber) {
  const std::pair<const char*, std::int16_t> rows[] = {
      {"Host 2006 - [plan.dwg]", 2006},
      {"Host 2010", 2010},
      {"", 0},
      {"no digits", 0},
      {"0 00 000.0", 0},
      {"R 16.2", 16},
      {"2006", 6},
      {"12ab", 2},
      {"5", 0},
      {" 1 2 3", 12},  // blanks among the digits
      {"3D 2010", 0},  // first 3D 2 as an exponent, then D 20, which is no number
      {" 3D 2010", 300},
      {"x &HFF", 255},
      {"x &O17", 15},
      {" 2.5 ", 2},  // half to even
      {" 3.5 ", 4},
      {" 1.5%", 2},  // a type character only ends the number
      {"\u00E9\u00E9\u00E9\u00E9 2006", 2006},
      {"\U0001F600\U0001F600 2006", 2006},
      {"9E99", 0},
  };
  for (const auto& [text, expected] : rows) {
    SCOPED_TRACE(text);
    Arguments arguments = {text};
    expect_same(called("GetNs", arguments), expected);
    EXPECT_EQ(arguments[0], Value(text));
  }
  expect_refusals("GetNs", {{{" 9E99"}, basic::overflow}, {{"a 1E5"}, basic::overflow}});
}

TEST(FilePath, IsCutWithoutLookingAtIt) {
  expect_answers("GetFolder", {{{"C:\\A\\B\\f.dwg"}, "C:\\A\\B"},
                               {{"C:\\A\\"}, "C:\\A"},
                               {{"f.dwg"}, "f.dwg"},
                               {{"\\f.dwg"}, ""},
                               {{"\\\\server\\f.dwg"}, "\\\\server"},
                               {{"C:/A/f.dwg"}, "C:/A/f.dwg"}});
  expect_refusals("GetFolder", {{{""}, basic::subscript_out_of_range}});

  expect_answers("GetFileName", {{{"plan.dwg"}, "plan"},
                                 {{"abcd"}, ""},
                                 {{"a.html"}, "a."},
                                 {{"grün😀.dwg"}, "grün😀"},
                                 {{"a😀bc"}, "a"}});  // five units
  expect_refusals("GetFileName", {{{"a.b"}, basic::bad_argument}, {{""}, basic::bad_argument}});
}

}  // namespace
}  // namespace velmar
