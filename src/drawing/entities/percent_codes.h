#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmar::drawing {

/// What one `%%` code stands for, and how many bytes of the text it takes.
struct PercentCode {
  std::string drawn;
  std::size_t size = 3;
  char switches = 0;  // 'u' underline, 'o' overline, 'k' strike through: on or off from here
};

/// The code that `text` begins with: `%%c`, `%%d`, `%%p`, `%%nnn`, `%%%`, `%%u`, `%%o`, `%%k`;
/// nothing where it begins with none.
std::optional<PercentCode> percent_code(std::string_view text);

}  // namespace velmar::drawing
