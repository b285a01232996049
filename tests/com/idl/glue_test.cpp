#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "com/idl/texts.h"
#include "component/method_table.h"

// The files for macros cannot be run here: their form is checked.
namespace velmar::com {
namespace {

using testing::HasSubstr;

/// Reads AutoLISP: lists of atoms, texts and lists; comments are passed over.
class LispReader {
 public:
  explicit LispReader(std::string_view text) : text_(text) {}

  /// The words of each list at the outermost level, lists inside them as "(...)"; nothing where a
  /// bracket or a text is not closed.
  std::optional<std::vector<std::vector<std::string>>> outermost() {
    std::vector<std::vector<std::string>> lists;
    for (skip(); at_ < text_.size(); skip()) {
      if (text_[at_] != '(') return {};
      auto list = read_list();
      if (!list) return {};
      lists.push_back(*list);
    }
    return lists;
  }

 private:
  void skip() {
    while (at_ < text_.size() && (text_[at_] == ';' || std::isspace(text_[at_]))) {
      at_ = text_[at_] == ';' ? text_.find('\n', at_) : at_ + 1;
    }
  }

  std::optional<std::vector<std::string>> read_list() {
    std::vector<std::string> words;
    for (++at_, skip(); at_ < text_.size() && text_[at_] != ')'; skip()) {
      const std::size_t begin = at_;
      if (!read_item()) return {};
      words.emplace_back(text_.substr(begin, at_ - begin));
    }
    if (at_ >= text_.size()) return {};
    ++at_;
    return words;
  }

  bool read_item() {
    if (text_[at_] == '\'') ++at_;
    if (text_[at_] == '(') return read_list().has_value();
    if (text_[at_] == '"') return read_text();
    while (at_ < text_.size() && !std::isspace(text_[at_]) && !std::strchr("()\";", text_[at_])) {
      ++at_;
    }
    return true;
  }

  bool read_text() {
    for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
      if (text_[at_] == '\\') ++at_;
    }
    return at_++ < text_.size();
  }

  std::string_view text_;
  std::size_t at_ = 0;
};

std::string parameters_in_lisp(const Method& method) {
  std::string text;
  for (const Parameter& parameter : method.parameters()) {
    text.append(text.empty() ? "$" : " $").append(parameter.name);
  }
  return "(" + text + ")";
}

TEST(Glue, AutoLispDefinesAFunctionAndACommandForEachMethod) {
  const auto lists = LispReader(autolisp_glue(methods())).outermost();
  ASSERT_TRUE(lists) << "a bracket or a text is not closed";
  for (const Method& method : methods()) {
    const std::string name(method.name);
    EXPECT_THAT(*lists, testing::Contains(
                            testing::AllOf(testing::SizeIs(4), testing::Contains("velmar:" + name),
                                           testing::Contains(parameters_in_lisp(method)))));
    EXPECT_THAT(*lists, testing::Contains(testing::AllOf(testing::Contains("c:Vm" + name),
                                                         testing::Contains("()"))));
  }
  for (const auto& list : *lists) {
    if (list[0] != "defun") continue;
    EXPECT_EQ(list[2].find(" type"), std::string::npos) << list[1] << " hides a function it needs";
  }
}

TEST(Glue, BasicDeclaresParametersAsTheMethodsDo) {
  const std::string text = vba_glue(methods());
  EXPECT_THAT(text,
              HasSubstr("Public Function VmRotateAllText("
                        "Optional ByVal LayerName As String, _\r\n"
                        "        Optional ByVal RotatValue As Double, _\r\n"
                        "        Optional ByRef ALLT As Boolean) As Variant\r\n"
                        "    VmRotateAllText = Velmar.RotateAllText(LayerName, RotatValue, ALLT)"
                        "\r\nEnd Function\r\n"));
  EXPECT_THAT(text, HasSubstr("Public Sub VmSlowDown(ByRef MilliSeconds As Long)\r\n"
                              "    Velmar.SlowDown MilliSeconds\r\nEnd Sub\r\n"));
  EXPECT_THAT(text, HasSubstr("As Integer\r\n    VmCountInText = Velmar.CountInText()"));
}

}  // namespace
}  // namespace velmar::com
