#pragma once

#include <vector>

#include "embedded/arguments.h"
#include "embedded/document_state.h"
#include "embedded/input.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// One named selection. Entities that are erased drop out of it. "Object was erased" after Delete.
class SelectionSet final : public PlainObject {
 public:
  SelectionSet(DocumentPointer document, std::shared_ptr<SelectionState> state, Input& input)
      : document_(std::move(document)), state_(std::move(state)), input_(input) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> arguments) override;
  /// The entities, in the order they were chosen.
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  using Entities = std::vector<drawing::RecordId>;
  struct Method {
    Member member;
    std::size_t required, at_most;
    Value (SelectionSet::*run)(Arguments&);
  };
  static const Method* find(Member member);

  Value item(Arguments& arguments);
  Value select(Arguments& arguments);
  Value select_by_polygon(Arguments& arguments);
  Value select_on_screen(Arguments& arguments);
  Value select_at_point(Arguments& arguments);
  Value add_items(Arguments& arguments);
  Value remove_items(Arguments& arguments);
  Value clear(Arguments& arguments);
  Value erase(Arguments& arguments);
  Value remove_set(Arguments& arguments);
  Value nothing_to_do(Arguments& arguments);

  void require_alive() const;
  /// Without erased ones.
  const Entities& entities();
  Entities chosen_by_mode(const Arguments& arguments) const;
  Entities chosen_by_user(Member method) const;
  Entities given(const Arguments& arguments) const;
  void add(const Entities& chosen);

  DocumentPointer document_;
  std::shared_ptr<SelectionState> state_;
  Input& input_;
  std::optional<std::uint64_t> swept_at_;  // the edition at which erased entities were taken out
};

}  // namespace velmar::embedded
