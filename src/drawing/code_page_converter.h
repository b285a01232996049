#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace velmar::drawing {

/// Texts between a code page and UTF-8, with the means of the operating system. Several threads may
/// use one.
class CodePageConverter {
 public:
  virtual ~CodePageConverter() = default;
  /// Each appends as much of `input` as it can to `output` and takes that off; false if a character
  /// is left that it cannot.
  virtual bool to_utf8(std::string_view& input, std::string& output) const = 0;
  virtual bool from_utf8(std::string_view& input, std::string& output) const = 0;
};

/// By a name such as "CP1252", "JOHAB", "MACINTOSH", "ISO-8859-1". Null where the operating system
/// has no such page.
std::shared_ptr<const CodePageConverter> open_converter(const std::string& name);

}  // namespace velmar::drawing
