#include "host/member.h"

#include <array>
#include <utility>

namespace velmar::host {
namespace {

/// The enumerator's name, cut out of the compiler's name of this very function.
template <Member member>
constexpr std::string_view name_of() {
  std::string_view name = __PRETTY_FUNCTION__;
  name = name.substr(name.find("member = ") + 9);
  name = name.substr(0, name.find_first_of(";]"));
  return name.substr(name.rfind(':') + 1);
}

template <std::size_t... index>
constexpr auto names_of(std::index_sequence<index...>) {
  return std::array{name_of<static_cast<Member>(index)>()...};
}

constexpr std::size_t member_count = static_cast<std::size_t>(Member::ZScaleFactor) + 1;
constexpr auto names = names_of(std::make_index_sequence<member_count>());
static_assert(names.front() == "Activate" || names.front() == "Active");
static_assert(names.back() == "ZScaleFactor");

constexpr char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool same_name(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return true;
}

}  // namespace

std::string_view spelling(Member member) { return names[static_cast<std::size_t>(member)]; }

std::optional<Member> find_member(std::string_view name) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (same_name(names[i], name)) return static_cast<Member>(i);
  }
  return std::nullopt;
}

}  // namespace velmar::host
