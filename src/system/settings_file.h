#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "component/system.h"

namespace velmar::system {

/// The text of a settings file:
///
///     [Velmar\Key]
///     CLT=Upper
///
/// Names are compared without regard to letter case. Line ends and backslashes inside names and
/// values are written `\n`, `\r`, `\\`. Lines that are none of these stay as they are.
class SettingsFile {
 public:
  explicit SettingsFile(std::string_view text);

  /// Empty where there is none.
  std::string get(const SettingName& name) const;
  void set(const SettingName& name, std::string_view value);
  std::string text() const;

 private:
  struct Place {
    std::size_t line = 0;  // of the setting; where there is none, the line it would be put before
    bool found = false, section_found = false;
  };
  Place find(const SettingName& name) const;

  std::vector<std::string> lines_;
};

}  // namespace velmar::system
