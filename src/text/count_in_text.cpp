#include <set>
#include <string>

#include "basic/letter_case.h"
#include "basic/number_text.h"
#include "basic/rounding.h"
#include "basic/strings.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

using host::Entity;

/// Names of layers with "-" between them.
class LayerList {
 public:
  /// Kept: a name that occurs in the list, be it inside another name, is not added.
  void add(const std::string& layer) {
    if (!seen_.insert(layer).second) return;
    if (text_.empty()) {
      text_ = layer;
    } else if (!basic::contains_ignoring_case(text_, layer)) {
      text_ += "-" + layer;
    }
  }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
  std::set<std::string> seen_;
};

}  // namespace

std::int16_t Velmar16::CountInText() {
  const std::string keyword = utility().GetString(true, new_line("Enter KeyWord for search: "));
  if (keyword.empty()) return 0;

  const std::u16string wanted = basic::folded(keyword);
  basic::Count count;
  LayerList layers;
  for (const Entity& candidate : model_space()) {
    if (!candidate.has_class(host::Text::class_name)) continue;
    const auto text = entity<host::Text>(candidate.Handle());
    if (basic::folded(text.TextString()).find(wanted) == std::u16string::npos) continue;
    ++count;
    layers.add(text.Layer());
  }
  utility().Prompt(new_line("Count of this specific word " + keyword + " Is: " +
                            basic::general(count.value()) + " At Layer/Layers " + layers.text()));
  return count.value();
}

}  // namespace velmar
