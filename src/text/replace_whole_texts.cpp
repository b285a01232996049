#include <string>

#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

using host::Entity;

/// Replaces the single-line texts that read exactly `old_text` and lie on a layer that `on_layer`
/// accepts, or deletes them where there is no new text.
template <class OnLayer>
void replace_whole_texts(const std::string& old_text, const std::string& new_text,
                         OnLayer on_layer) {
  for (const Entity& candidate : model_space()) {
    if (!candidate.has_class(host::Text::class_name) || !on_layer(candidate)) continue;
    const auto text = entity<host::Text>(candidate.Handle());
    if (text.TextString() != old_text) continue;
    if (new_text.empty()) {
      text.Delete();
    } else {
      text.TextString(new_text);
    }
  }
}

}  // namespace

Empty Velmar16::ReplaceT(std::string& OldT, std::string& NewT) {
  replace_whole_texts(OldT, NewT, [](const Entity&) { return true; });
  return {};
}

Empty Velmar16::ReplaceTL(std::string& OldT, std::string& NewT, std::string& TLayer) {
  replace_whole_texts(OldT, NewT, [&](const Entity& text) { return text.is_on(TLayer); });
  return {};
}

}  // namespace velmar
