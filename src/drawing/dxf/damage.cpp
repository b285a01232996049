#include "drawing/dxf/damage.h"

namespace velmar::drawing::dxf {

bool plausible_name(std::string_view name) {
  bool letters = false;
  for (const char c : name) {
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    if (!letter && !(c >= '0' && c <= '9') && c != '_' && c != '-' && c != '.' && c != '$')
      return false;
    letters = letters || letter;
  }
  return letters;
}

std::string shown(std::string_view text) {
  constexpr std::size_t most = 40;
  std::string out = "\"";
  for (const char c : text.substr(0, most)) out += c >= 0 && c < ' ' ? '.' : c;
  return out + '"';
}

Damage no_name(std::size_t offset, std::string_view found) {
  return {offset, "expected the name of a record, found " + shown(found) + rest_is_kept};
}

}  // namespace velmar::drawing::dxf
