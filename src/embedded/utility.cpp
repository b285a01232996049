#include "embedded/utility.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "embedded/document_members.h"
#include "embedded/entity_object.h"

namespace velmar::embedded {
namespace {

using drawing::Point;

std::string prompt_in(const Arguments& arguments, std::size_t position) {
  return arguments.has(position) ? arguments.text(position) : std::string();
}

template <class Number>
Reading<Number> allowed(std::optional<Number> number, const InputRules& rules,
                        std::string_view otherwise) {
  if (!number) return {{}, std::string(otherwise)};
  if (*number == 0 && rules.has(InputRules::no_zero)) return {{}, "The value must not be zero."};
  if (*number < 0 && rules.has(InputRules::no_negative)) {
    return {{}, "The value must not be negative."};
  }
  return {number, {}};
}

double direction(Point from, Point to) {
  return normal_angle(std::atan2(to.y - from.y, to.x - from.x));
}

Reading<Point> read_point_from(std::string_view typed, Point from) {
  return {read_point(typed, from), "Requires a point: x,y[,z], @dx,dy or @distance<angle."};
}

}  // namespace

const Utility::Method* Utility::find(Member member) {
  static constexpr std::array methods{
      Method{Member::AngleFromXAxis, 2, 2, &Utility::angle_from_x_axis},
      Method{Member::AngleToReal, 2, 2, &Utility::angle_to_real},
      Method{Member::GetAngle, 0, 2, &Utility::get_angle},
      Method{Member::GetCorner, 1, 2, &Utility::get_corner},
      Method{Member::GetDistance, 0, 2, &Utility::get_distance},
      Method{Member::GetEntity, 2, 3, &Utility::get_entity},
      Method{Member::GetInput, 0, 0, &Utility::get_input},
      Method{Member::GetInteger, 0, 1, &Utility::get_integer},
      Method{Member::GetKeyword, 0, 1, &Utility::get_keyword},
      Method{Member::GetOrientation, 0, 2, &Utility::get_angle},
      Method{Member::GetPoint, 0, 2, &Utility::get_point},
      Method{Member::GetReal, 0, 1, &Utility::get_real},
      Method{Member::GetString, 1, 2, &Utility::get_string},
      Method{Member::InitializeUserInput, 1, 2, &Utility::initialize_user_input},
      Method{Member::PolarPoint, 3, 3, &Utility::polar_point},
      Method{Member::Prompt, 1, 1, &Utility::prompt},
  };
  const auto found = std::ranges::find(methods, member, &Method::member);
  return found == methods.end() ? nullptr : &*found;
}

Value Utility::get(Member member) {
  require_open(*document_);
  if (member != Member::Application) throw no_such_member(member);
  return *document_member(*document_, member);
}

Value Utility::call(Member member, std::span<Value> arguments) {
  require_open(*document_);
  const Method* method = find(member);
  if (!method) return PlainObject::call(member, arguments);
  Arguments checked(member, arguments, method->required, method->at_most);
  return translated([&] { return (this->*method->run)(checked); });
}

Value Utility::get_entity(Arguments& arguments) {
  const Question question{QuestionKind::entity, prompt_in(arguments, 2)};
  const InputRules rules = dialogue_.take_rules();
  const auto picked = dialogue_.ask<Picked>(
      arguments.method(), question, rules,
      [&](const std::string& typed) { return read_entity(*document_, typed); });
  if (picked.entity == drawing::RecordId::none) throw dialogue_.cancelled(arguments.method());
  arguments.give(0, make_entity(document_, picked.entity));
  arguments.give(1, to_value(picked.at));
  return {};
}

Point Utility::ask_point(Member method, const Question& question, const InputRules& rules,
                         Point from) {
  document_->last_point =
      dialogue_.ask<Point>(method, question, rules,
                           [&](const std::string& typed) { return read_point_from(typed, from); });
  return document_->last_point;
}

Value Utility::get_point(Arguments& arguments) {
  const Point from = arguments.has(0) ? arguments.point(0, "Point") : document_->last_point;
  const Question question{QuestionKind::point, prompt_in(arguments, 1)};
  return to_value(ask_point(arguments.method(), question, dialogue_.take_rules(), from));
}

Value Utility::get_corner(Arguments& arguments) {
  const Point from = arguments.point(0, "Point");
  const Question question{QuestionKind::corner, prompt_in(arguments, 1)};
  return to_value(ask_point(arguments.method(), question, dialogue_.take_rules(), from));
}

/// A number, or what is measured from the base to a point; where no base is given, from the point
/// that is typed to a second one, which is asked for.
template <class ReadNumber, class Measure>
double Utility::ask_measure(Arguments& arguments, QuestionKind kind, ReadNumber read_number,
                            Measure measure) {
  std::optional<Point> base;
  if (arguments.has(0)) base = arguments.point(0, "Point");
  const Question question{kind, prompt_in(arguments, 1)};
  const InputRules rules = dialogue_.take_rules();
  std::optional<Point> first;
  const auto number = dialogue_.ask<double>(
      arguments.method(), question, rules, [&](const std::string& typed) -> Reading<double> {
        const auto point = read_point(typed, base.value_or(document_->last_point));
        if (!point) {
          return allowed<double>(read_number(typed), rules,
                                 "Requires " + std::string(in_words(kind)) + " or a point.");
        }
        document_->last_point = *point;
        if (base) return allowed<double>(measure(*base, *point), rules, "");
        first = point;
        return {0.0, {}};
      });
  if (!first) return number;
  const InputRules same_limits{rules.bits | InputRules::no_enter, {}};
  const Question second{QuestionKind::point, "\r\nSpecify second point: "};
  return dialogue_.ask<double>(arguments.method(), second, same_limits,
                               [&](const std::string& typed) -> Reading<double> {
                                 const Reading<Point> point = read_point_from(typed, *first);
                                 if (!point.value) return {{}, point.refused};
                                 document_->last_point = *point.value;
                                 return allowed<double>(measure(*first, *point.value), rules, "");
                               });
}

Value Utility::get_distance(Arguments& arguments) {
  return ask_measure(arguments, QuestionKind::distance, read_real,
                     [](Point from, Point to) { return norm(to - from); });
}

Value Utility::get_angle(Arguments& arguments) {
  const bool absolute = arguments.method() == Member::GetOrientation;
  return ask_measure(arguments, absolute ? QuestionKind::orientation : QuestionKind::angle,
                     read_angle, direction);
}

Value Utility::get_real(Arguments& arguments) {
  const Question question{QuestionKind::real, prompt_in(arguments, 0)};
  const InputRules rules = dialogue_.take_rules();
  return dialogue_.ask<double>(arguments.method(), question, rules, [&](const std::string& typed) {
    return allowed(read_real(typed), rules, "Requires a number, such as 12, 1.5e3 or 1-1/2.");
  });
}

Value Utility::get_integer(Arguments& arguments) {
  const Question question{QuestionKind::integer, prompt_in(arguments, 0)};
  const InputRules rules = dialogue_.take_rules();
  return dialogue_.ask<std::int16_t>(
      arguments.method(), question, rules, [&](const std::string& typed) {
        return allowed(read_integer(typed), rules, "Requires an integer from -32768 to 32767.");
      });
}

Value Utility::get_string(Arguments& arguments) {
  const bool has_spaces = arguments.integer(0) != 0;
  const Question question{QuestionKind::text, prompt_in(arguments, 1)};
  dialogue_.take_rules();
  const std::string typed = dialogue_.line(arguments.method(), question);
  return has_spaces ? typed : typed.substr(0, typed.find(' '));
}

Value Utility::get_keyword(Arguments& arguments) {
  const Question question{QuestionKind::keyword, prompt_in(arguments, 0)};
  const InputRules rules = dialogue_.take_rules();
  for (;;) {
    const std::string typed(trimmed(dialogue_.line(arguments.method(), question, rules)));
    if (typed.empty() && !rules.has(InputRules::no_enter)) return "";
    if (const auto keyword = rules.keywords.find(typed)) return *keyword;
    if (const auto keyword = rules.keywords.find_by_beginning(typed)) return *keyword;
    if (!typed.empty() && rules.has(InputRules::any_text)) return typed;
    dialogue_.refuse("Requires one of: " + rules.keywords.in_words() + ".");
  }
}

Value Utility::get_input(Arguments&) { return dialogue_.keyword(); }

Value Utility::initialize_user_input(Arguments& arguments) {
  InputRules rules{arguments.integer(0), {}};
  if (arguments.has(1)) rules.keywords = Keywords(arguments.text(1));
  dialogue_.set_rules(std::move(rules));
  return {};
}

Value Utility::prompt(Arguments& arguments) {
  dialogue_.say(arguments.text(0));
  return {};
}

Value Utility::angle_from_x_axis(Arguments& arguments) {
  return direction(arguments.point(0, "StartPoint"), arguments.point(1, "EndPoint"));
}

Value Utility::angle_to_real(Arguments& arguments) {
  enum Unit { degrees = 0, grads = 2, radians = 3 };
  std::string text(trimmed(arguments.text(0)));
  switch (arguments.integer(1)) {
    case degrees:
      break;
    case grads:
      text += 'g';
      break;
    case radians:
      text += 'r';
      break;
    default:
      throw invalid_argument("Unit", arguments.method());
  }
  const auto angle = read_angle(text);
  if (!angle) throw invalid_argument("Angle", arguments.method());
  return *angle;
}

Value Utility::polar_point(Arguments& arguments) {
  const Point from = arguments.point(0, "Point");
  const double angle = arguments.number(1), distance = arguments.number(2);
  return to_value(from + Point{distance * std::cos(angle), distance * std::sin(angle), 0});
}

}  // namespace velmar::embedded
