#include "system/settings_file.h"

#include <gtest/gtest.h>

namespace velmar::system {
namespace {

TEST(SettingsFile, ChangesOneSettingAndNothingElse) {
  SettingsFile file(
      "; mine\n[Velmar\\Other]\nCLT=x\n\n[velmar\\key]\nfoo\nclt=a=b\n\n[Z\\Key]\nCLT=z");
  EXPECT_EQ(file.get({"Velmar", "Key", "CLT"}), "a=b");
  EXPECT_EQ(file.get({"Velmar", "Key", "J2T"}), "");
  EXPECT_EQ(file.get({"Velmar", "None", "CLT"}), "");
  file.set({"Velmar", "Key", "CLT"}, "Upper");
  file.set({"Velmar", "Key", "J2T"}, "\\\n");
  file.set({"Velmar", "New", "A"}, "1");
  EXPECT_EQ(
      file.text(),
      "; mine\n[Velmar\\Other]\nCLT=x\n\n[velmar\\key]\nfoo\nCLT=Upper\nJ2T=\\\\\\n\n\n[Z\\Key]\n"
      "CLT=z\n[Velmar\\New]\nA=1\n");
}

}  // namespace
}  // namespace velmar::system
