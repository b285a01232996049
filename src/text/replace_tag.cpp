#include <optional>
#include <string>

#include "basic/number_text.h"
#include "basic/rounding.h"
#include "basic/strings.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::attempt;
using host::Attribute;
using host::BlockReference;
using host::Entity;
using host::ResumeNext;

struct TagReplacement {
  std::string block, tag, old_text, new_text;  // without an old text any value is replaced
};

/// Nothing when the user cancelled a question or named no tag.
std::optional<TagReplacement> ask_for(const std::string& block) {
  TagReplacement wanted{block, {}, {}, {}};
  const bool answered = attempt([&] {
    wanted.tag = utility().GetString(false, new_line("Enter Tag Name: "));
    if (wanted.tag.empty()) return;
    wanted.old_text = utility().GetString(true, new_line("Enter Old Text (Enter for any): "));
    wanted.new_text = utility().GetString(true, new_line("Enter New Text: "));
  });
  if (!answered || wanted.tag.empty()) return std::nullopt;
  return wanted;
}

bool is_meant(const Attribute& attribute, const TagReplacement& wanted) {
  return basic::equal_ignoring_case(attribute.TagString(), wanted.tag) &&
         (wanted.old_text.empty() || attribute.TextString() == wanted.old_text);
}

void replace_in(ResumeNext& step, const BlockReference& reference, const TagReplacement& wanted,
                basic::Count& count) {
  for (const Attribute& attribute : reference.GetAttributes()) {
    bool replaced = false;
    step([&] {
      if (!is_meant(attribute, wanted)) return;
      attribute.TextString(wanted.new_text);
      replaced = true;
    });
    if (!replaced) continue;
    step([&] { attribute.Update(); });
    step([&] { ++count; });
  }
}

}  // namespace

Empty Velmar16::ReplaceTag() {
  ResumeNext step;
  Entity picked;
  std::string block;
  step([&] { picked = utility().GetEntity(new_line("Select Block")); });
  if (step.pending()) return {};
  step([&] { picked.Update(); });
  step([&] { block = entity<BlockReference>(picked.Handle()).Name(); });

  const std::optional<TagReplacement> wanted = ask_for(block);
  if (!wanted) return {};

  basic::Count count;
  step([&] {
    for (const Entity& candidate : model_space()) {
      step([&] {
        const auto reference = host::try_as<BlockReference>(candidate);
        if (!reference || reference->Name() != wanted->block) return;
        replace_in(step, *reference, *wanted, count);
      });
    }
  });
  step([&] {
    utility().Prompt(
        new_line("Tag {" + wanted->tag + "} Replaced " + basic::general(count.value()) + " found"));
  });
  step([] { utility().Prompt(new_line(autocad_ready)); });
  return {};
}

}  // namespace velmar
