#include "embedded/selection_sets.h"

#include <algorithm>

#include "basic/strings.h"
#include "embedded/arguments.h"
#include "embedded/collection.h"
#include "embedded/document_members.h"
#include "embedded/errors.h"
#include "embedded/selection_set.h"

namespace velmar::embedded {

Value SelectionSets::get(Member member) {
  require_open(*document_);
  switch (member) {
    case Member::Application:
      return *document_member(*document_, member);
    case Member::Count:
      return static_cast<std::int32_t>(document_->selections.size());
    default:
      throw no_such_member(member);
  }
}

Value SelectionSets::call(Member member, std::span<Value> values) {
  require_open(*document_);
  if (member == Member::Add) return add(Arguments(member, values, 1, 1).text(0));
  if (member != Member::Item) return PlainObject::call(member, values);
  const Arguments arguments(member, values, 1, 1);
  const auto& sets = document_->selections;
  if (const auto position = item_position(arguments, sets.size())) return object(sets[*position]);
  auto named = find(arguments.text(0));
  if (!named) throw failure(HostError::key_not_found);
  return object(std::move(named));
}

std::unique_ptr<host::Enumerator> SelectionSets::enumerate() {
  require_open(*document_);
  return walk(document_->selections,
              [all = *this](const std::shared_ptr<SelectionState>& set) -> std::optional<Value> {
                const auto& sets = all.document_->selections;
                if (std::ranges::find(sets, set) == sets.end()) return std::nullopt;
                return all.object(set);
              });
}

Value SelectionSets::add(std::string name) {
  if (name.empty()) throw failure(HostError::invalid_input);
  if (find(name)) throw failure(HostError::selection_set_exists);
  auto state = std::make_shared<SelectionState>(SelectionState{std::move(name), {}});
  document_->selections.push_back(state);
  return object(std::move(state));
}

Value SelectionSets::object(std::shared_ptr<SelectionState> state) const {
  return std::make_shared<SelectionSet>(document_, std::move(state), input_);
}

std::shared_ptr<SelectionState> SelectionSets::find(std::string_view name) const {
  const auto& sets = document_->selections;
  const auto found = std::ranges::find_if(
      sets, [&](const auto& set) { return basic::equal_ignoring_case(set->name, name); });
  return found == sets.end() ? nullptr : *found;
}

}  // namespace velmar::embedded
