#include "component/method_words.h"

#include <gmock/gmock.h>

#include "component/method_table.h"

namespace velmar {
namespace {

TEST(MethodWords, AreThereForEveryMethod) {
  for (const Method& method : methods()) {
    EXPECT_FALSE(everyday_words(method.name).empty()) << method.name;
  }
}

struct Search {
  std::string_view words;
  std::vector<std::string_view> first;  // in this order
};

TEST(MethodWords, FindWhatUsersCallIt) {
  const Search searches[] = {
      {"uppercase", {"UpperCase"}},
      {"Uppercase texts", {"ChangeLetterCase"}},
      {"flatten", {"Alignement"}},
      {"purge", {"PurgeALLFolder"}},
      {"sum area", {"GetTotalArea"}},
      {"sum lengths", {"GetTotalLength"}},
      {"total length", {"GetTotalLength"}},
      {"renumber", {"TextIndex"}},
      {"rename layers", {"NmLayer"}},
      {"find and replace attribute", {"ReplaceTag"}},
      {"export dxf", {"FolderDwgDxf"}},
      {"burst", {"ExplodeBlock"}},
      {"new layer", {"MLayer"}},
      {"linetype scale", {"ReplaceLineByType"}},
      {"delete color", {"ColDel", "ColDelLayer"}},
      {"join", {"Joint2Text"}},
      {"rebar", {"TextBar"}},
      {"xref", {"Unload_Xref", "Unload_TB"}},
      {"count", {"GetNOLayer", "GetNType", "GetNTypeLayer", "CountInText"}},
  };
  for (const auto& [words, first] : searches) {
    std::vector<std::string_view> found;
    for (const Method* method : methods_about(words)) found.push_back(method->name);
    found.resize(std::min(found.size(), first.size()));
    EXPECT_EQ(found, first) << words;
  }
  EXPECT_TRUE(methods_about("teapot").empty());
  EXPECT_TRUE(methods_about(" , ").empty());
}

}  // namespace
}  // namespace velmar
