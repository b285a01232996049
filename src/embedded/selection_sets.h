#pragma once

#include "embedded/document_state.h"
#include "embedded/input.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// The named selections of a drawing, in the order they were made. Names are found without regard
/// to case; a second set of a name is refused.
class SelectionSets final : public PlainObject {
 public:
  SelectionSets(DocumentPointer document, Input& input)
      : document_(std::move(document)), input_(input) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> arguments) override;
  std::unique_ptr<host::Enumerator> enumerate() override;

 private:
  Value add(std::string name);
  Value object(std::shared_ptr<SelectionState> state) const;
  /// Null where there is none of that name.
  std::shared_ptr<SelectionState> find(std::string_view name) const;

  DocumentPointer document_;
  Input& input_;
};

}  // namespace velmar::embedded
