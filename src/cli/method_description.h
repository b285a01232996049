#pragma once

#include <string>
#include <string_view>

#include "component/method.h"

namespace velmar::cli {

std::string_view in_words(ValueType type);
std::string_view in_words(Subject subject);

struct ErrorStyle {
  std::string_view name, meaning;
};
ErrorStyle error_style(OnFailure on_failure);

/// "0x6002000B".
std::string dispatch_text(const Method& method);

/// Signature, help, parameters and facts of one method.
std::string method_text(const Method& method);
/// Signature and help in two columns; a signature that does not fit has its help on the next line.
std::string line_of_list(const Method& method);
/// All methods by subject.
std::string methods_text();

}  // namespace velmar::cli
