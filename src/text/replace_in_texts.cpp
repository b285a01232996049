#include <algorithm>
#include <optional>
#include <string>

#include "basic/strings.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "text/paragraph_text.h"

namespace velmar {
namespace {

using host::Entity;

struct Replacement {
  const std::string &old_text, &new_text;
  bool first_only, whole_only;
};

struct Edited {
  std::string content;
  bool is_empty;  // nothing is left to see
};

/// Nothing where the content stays as it is.
std::optional<Edited> edited_line(const std::string& content, const Replacement& wanted) {
  if (wanted.whole_only && content != wanted.old_text) return std::nullopt;
  std::string edited =
      basic::replace(content, wanted.old_text, wanted.new_text, wanted.first_only ? 1 : -1);
  if (edited == content) return std::nullopt;
  const bool is_empty = edited.empty();
  return Edited{std::move(edited), is_empty};
}

/// Whether the plain text, which has nothing that is escaped, is nowhere in the contents.
bool is_absent(const std::string& plain, const std::string& content) {
  const bool can_be_escaped =
      std::ranges::any_of(plain, [](char c) { return c < 0 || c == '\\' || c == '{' || c == '}'; });
  return !can_be_escaped && content.find(plain) == content.npos &&
         content.find("\\U+") == content.npos;
}

/// The same for the contents of a multi-line text: formatting is neither searched nor changed.
std::optional<Edited> edited_paragraphs(const std::string& content, const Replacement& wanted) {
  if (is_absent(wanted.old_text, content)) return std::nullopt;
  const ParagraphText paragraphs(content);
  if (wanted.whole_only && !paragraphs.is(wanted.old_text)) return std::nullopt;
  const std::string replaced_by = escaped(wanted.new_text);
  std::string edited;
  std::size_t copied = 0;
  for (const PlainRun& run : paragraphs.runs) {
    std::size_t found = run.text.find(wanted.old_text);
    while (found != run.text.npos) {
      const std::size_t behind = found + wanted.old_text.size();
      edited.append(content, copied, run.at[found] - copied).append(replaced_by);
      copied = run.at[behind];
      if (wanted.first_only) break;
      found = run.text.find(wanted.old_text, behind);
    }
    if (wanted.first_only && copied > 0) break;
  }
  edited.append(content, copied);
  if (edited == content) return std::nullopt;
  const bool is_empty = ParagraphText(edited).is_empty();
  return Edited{std::move(edited), is_empty};
}

template <class Text, class Edit>
void replace_in(const Text& text, Edit edit, const Replacement& wanted) {
  const std::optional<Edited> edited = edit(text.TextString(), wanted);
  if (!edited) return;
  if (edited->is_empty) {
    text.Delete();
  } else {
    text.TextString(edited->content);
  }
}

}  // namespace

Empty Velmar16::ReplaceInT(std::string& OldT, std::string& NewT, std::string& LayerName,
                           bool& First, bool& OnlyExOrNt) {
  if (OldT.empty()) return {};
  const Replacement wanted{OldT, NewT, First, OnlyExOrNt};
  for (const Entity& candidate : model_space()) {
    const std::string kind = candidate.ObjectName();
    const bool is_line = kind == host::Text::class_name;
    if (!is_line && kind != host::MText::class_name) continue;
    if (!LayerName.empty() && !candidate.is_on(LayerName)) continue;
    if (is_line) {
      replace_in(entity<host::Text>(candidate.Handle()), edited_line, wanted);
    } else {
      replace_in(entity<host::MText>(candidate.Handle()), edited_paragraphs, wanted);
    }
  }
  return {};
}

}  // namespace velmar
