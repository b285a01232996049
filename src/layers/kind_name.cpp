#include "layers/kind_name.h"

#include <algorithm>

#include "component/kind_code.h"

namespace velmar {
namespace {

/// Of the codes that these commands have in common; empty for other texts.
std::string_view type_word(std::string_view kind) {
  const KindCode* row = find_kind_code(kind);
  if (!row || row->code == "PLW" || row->code == "D") return {};
  return row->type_word;
}

}  // namespace

std::string class_named(std::string_view kind, std::span<const MoreKind> more) {
  const auto found = std::ranges::find(more, kind, &MoreKind::code);
  const std::string_view word = found != more.end() ? found->type_word : type_word(kind);
  return word.empty() ? std::string(kind) : std::string("AcDb").append(word);
}

}  // namespace velmar
