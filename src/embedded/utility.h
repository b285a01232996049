#pragma once

#include "embedded/arguments.h"
#include "embedded/dialogue.h"
#include "embedded/document_state.h"
#include "embedded/plain_object.h"

namespace velmar::embedded {

/// The command line of a drawing. What a user can answer is told in answers.h and picked.h; an
/// answer that cannot be used is refused with a message and asked for again.
/// Fails: cancelled for Escape, and for GetEntity also on Enter and a pick on nothing; keyword
/// where a keyword or Enter came in place of a value.
class Utility final : public PlainObject {
 public:
  Utility(DocumentPointer document, Input& input)
      : document_(std::move(document)), dialogue_(input) {}

  Value get(Member member) override;
  Value call(Member member, std::span<Value> arguments) override;

 private:
  struct Method {
    Member member;
    std::size_t required, at_most;
    Value (Utility::*run)(Arguments&);
  };
  static const Method* find(Member member);

  Value get_entity(Arguments& arguments);
  Value get_point(Arguments& arguments);
  Value get_corner(Arguments& arguments);
  Value get_distance(Arguments& arguments);
  Value get_angle(Arguments& arguments);
  Value get_real(Arguments& arguments);
  Value get_integer(Arguments& arguments);
  Value get_string(Arguments& arguments);
  Value get_keyword(Arguments& arguments);
  Value get_input(Arguments& arguments);
  Value initialize_user_input(Arguments& arguments);
  Value prompt(Arguments& arguments);
  Value angle_from_x_axis(Arguments& arguments);
  Value angle_to_real(Arguments& arguments);
  Value polar_point(Arguments& arguments);

  drawing::Point ask_point(Member method, const Question& question, const InputRules& rules,
                           drawing::Point from);
  template <class ReadNumber, class Measure>
  double ask_measure(Arguments& arguments, QuestionKind kind, ReadNumber read_number,
                     Measure measure);

  DocumentPointer document_;
  Dialogue dialogue_;
};

}  // namespace velmar::embedded
