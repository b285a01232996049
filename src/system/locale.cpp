#include "system/locale.h"

#include <langinfo.h>
#include <locale.h>

#include <string_view>

#include "basic/ansi.h"

namespace velmar::system {

basic::Separators user_separators() {
  // A locale of its own: the process keeps the one it has.
  const locale_t user = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (user == nullptr) return {};
  const std::string_view decimal = ::nl_langinfo_l(RADIXCHAR, user);
  const std::string_view group = ::nl_langinfo_l(THOUSEP, user);
  basic::Separators marks;
  if (decimal.size() == 1) marks.decimal = decimal.front();
  if (group.size() == 1) marks.group = group.front();
  if (group.size() > 1) marks.group = ' ';
  if (marks.group == marks.decimal) marks.group = '.';
  ::freelocale(user);
  return marks;
}

char16_t through_user_code_page(char16_t unit) {
  return basic::ansi_character(basic::ansi_code(unit));
}

}  // namespace velmar::system
