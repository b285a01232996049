#include "embedded/selection_set.h"

#include <algorithm>
#include <array>
#include <unordered_set>

#include "embedded/answers.h"
#include "embedded/collection.h"
#include "embedded/current.h"
#include "embedded/document_members.h"
#include "embedded/entity_object.h"
#include "embedded/entity_walk.h"
#include "embedded/errors.h"
#include "embedded/picked.h"
#include "embedded/picking.h"
#include "embedded/selection_filter.h"

namespace velmar::embedded {
namespace {

using drawing::Drawing;
using drawing::Record;
using drawing::RecordId;

enum class Mode : std::int32_t {
  window = 0,
  crossing = 1,
  fence = 2,
  previous = 3,
  last = 4,
  all = 5,
  window_polygon = 6,
  crossing_polygon = 7
};

/// Of model space and every layout, whether they can be seen or not.
std::vector<RecordId> all_drawn(const Drawing& drawing) {
  std::vector<RecordId> entities;
  for (std::size_t i = 0; i < drawing.spaces().size(); ++i) {
    const auto space = static_cast<drawing::SpaceId>(i);
    if (!is_sheet(drawing, space)) continue;
    const auto drawn = drawing.entities(space);
    entities.insert(entities.end(), drawn.begin(), drawn.end());
  }
  return entities;
}

bool on_locked_layer(const Drawing& drawing, RecordId id) {
  const drawing::LayerId layer = drawing.record(id).layer;
  return layer != drawing::LayerId::none && drawing.layer(layer).locked();
}

}  // namespace

const SelectionSet::Method* SelectionSet::find(Member member) {
  static constexpr std::array methods{
      Method{Member::AddItems, 1, 1, &SelectionSet::add_items},
      Method{Member::Clear, 0, 0, &SelectionSet::clear},
      Method{Member::Delete, 0, 0, &SelectionSet::remove_set},
      Method{Member::Erase, 0, 0, &SelectionSet::erase},
      Method{Member::Highlight, 1, 1, &SelectionSet::nothing_to_do},
      Method{Member::Item, 1, 1, &SelectionSet::item},
      Method{Member::RemoveItems, 1, 1, &SelectionSet::remove_items},
      Method{Member::Select, 1, 5, &SelectionSet::select},
      Method{Member::SelectAtPoint, 1, 3, &SelectionSet::select_at_point},
      Method{Member::SelectByPolygon, 2, 4, &SelectionSet::select_by_polygon},
      Method{Member::SelectOnScreen, 0, 2, &SelectionSet::select_on_screen},
      Method{Member::Update, 0, 0, &SelectionSet::nothing_to_do},
  };
  const auto found = std::ranges::find(methods, member, &Method::member);
  return found == methods.end() ? nullptr : &*found;
}

Value SelectionSet::get(Member member) {
  require_alive();
  switch (member) {
    case Member::Application:
      return *document_member(*document_, member);
    case Member::Count:
      return static_cast<std::int32_t>(entities().size());
    case Member::Name:
      return state_->name;
    default:
      throw no_such_member(member);
  }
}

Value SelectionSet::call(Member member, std::span<Value> arguments) {
  require_alive();
  const Method* method = find(member);
  if (!method) return PlainObject::call(member, arguments);
  Arguments checked(member, arguments, method->required, method->at_most);
  return translated([&] { return (this->*method->run)(checked); });
}

std::unique_ptr<host::Enumerator> SelectionSet::enumerate() {
  require_alive();
  return std::make_unique<EntityWalk>(document_, entities());
}

Value SelectionSet::item(Arguments& arguments) {
  const Entities& present = entities();
  return make_entity(document_, present[arguments.index(0, present.size())]);
}

Value SelectionSet::select(Arguments& arguments) {
  const SelectionFilter filter = SelectionFilter::from(arguments, 3);
  add(filter.passed(document_->drawing, chosen_by_mode(arguments)));
  return {};
}

/// A fence is open, the polygons are closed from the last point to the first.
Value SelectionSet::select_by_polygon(Arguments& arguments) {
  const auto mode = static_cast<Mode>(arguments.integer(0));
  const bool is_fence = mode == Mode::fence;
  if (!is_fence && mode != Mode::window_polygon && mode != Mode::crossing_polygon) {
    throw invalid_argument("Mode", arguments.method());
  }
  const basic::Doubles& numbers = arguments.numbers(1, "PointsList");
  const std::size_t fewest = is_fence ? 2 : 3;
  if (numbers.size() % 3 != 0 || numbers.size() / 3 < fewest) {
    throw failure(HostError::wrong_element_count);
  }
  Chain points;
  for (std::size_t i = 0; i < numbers.size(); i += 3) {
    points.push_back({numbers[i], numbers[i + 1], numbers[i + 2]});
  }
  const SelectionFilter filter = SelectionFilter::from(arguments, 2);
  const drawing::SpaceId space = current_space(*document_);
  const Drawing& drawing = document_->drawing;
  add(filter.passed(
      drawing,
      is_fence ? entities_on_fence(drawing, space, points)
               : entities_within(drawing, space, points,
                                 mode == Mode::window_polygon ? Reach::window : Reach::crossing)));
  return {};
}

Value SelectionSet::select_on_screen(Arguments& arguments) {
  const SelectionFilter filter = SelectionFilter::from(arguments, 0);
  Entities chosen = filter.passed(document_->drawing, chosen_by_user(arguments.method()));
  add(chosen);
  if (!chosen.empty()) document_->previous_selection = std::move(chosen);
  return {};
}

Value SelectionSet::select_at_point(Arguments& arguments) {
  const drawing::Point point = arguments.point(0, "Point");
  const SelectionFilter filter = SelectionFilter::from(arguments, 1);
  const RecordId found = entity_at(document_->drawing, current_space(*document_), point);
  if (found != RecordId::none) add(filter.passed(document_->drawing, {found}));
  return {};
}

Value SelectionSet::add_items(Arguments& arguments) {
  add(given(arguments));
  return {};
}

Value SelectionSet::remove_items(Arguments& arguments) {
  const Entities items = given(arguments);
  const std::unordered_set<RecordId> removed(items.begin(), items.end());
  std::erase_if(state_->entities, [&](RecordId id) { return removed.contains(id); });
  return {};
}

Value SelectionSet::clear(Arguments&) {
  state_->entities.clear();
  return {};
}

/// Refused as a whole where one of the entities is on a locked layer.
Value SelectionSet::erase(Arguments&) {
  Drawing& drawing = document_->drawing;
  const Entities erased = entities();
  if (std::ranges::any_of(erased, [&](RecordId id) { return on_locked_layer(drawing, id); })) {
    throw failure(HostError::on_locked_layer);
  }
  for (const RecordId id : erased) drawing.erase(id);
  return {};
}

Value SelectionSet::remove_set(Arguments&) {
  std::erase(document_->selections, state_);
  return {};
}

Value SelectionSet::nothing_to_do(Arguments&) { return {}; }

void SelectionSet::require_alive() const {
  require_open(*document_);
  const auto& sets = document_->selections;
  if (std::ranges::find(sets, state_) == sets.end()) throw failure(HostError::was_erased);
}

const SelectionSet::Entities& SelectionSet::entities() {
  const Drawing& drawing = document_->drawing;
  if (swept_at_ != drawing.edition()) {
    std::erase_if(state_->entities,
                  [&](RecordId id) { return drawing.record(id).is(Record::erased); });
    swept_at_ = drawing.edition();
  }
  return state_->entities;
}

SelectionSet::Entities SelectionSet::chosen_by_mode(const Arguments& arguments) const {
  const Drawing& drawing = document_->drawing;
  const drawing::SpaceId space = current_space(*document_);
  const auto mode = static_cast<Mode>(arguments.integer(0));
  switch (mode) {
    case Mode::window:
    case Mode::crossing: {
      if (!arguments.has(1)) throw invalid_argument("Point1", arguments.method());
      if (!arguments.has(2)) throw invalid_argument("Point2", arguments.method());
      const std::pair corners{arguments.point(1, "Point1"), arguments.point(2, "Point2")};
      return entities_within(drawing, space, corners,
                             mode == Mode::window ? Reach::window : Reach::crossing);
    }
    case Mode::previous:
      return document_->previous_selection;
    case Mode::last: {
      const RecordId newest = last_visible(drawing, space);
      return newest == RecordId::none ? Entities{} : Entities{newest};
    }
    case Mode::all:
      return all_drawn(drawing);
    default:
      throw invalid_argument("Mode", arguments.method());
  }
}

/// Asks until Enter. Nothing is chosen where the user cancels.
SelectionSet::Entities SelectionSet::chosen_by_user(Member method) const {
  const Question question{QuestionKind::selection, "\r\nSelect objects: "};
  Entities chosen;
  for (;;) {
    const std::optional<std::string> typed = input_.answer(question);
    if (!typed) throw cancelled(method, "IAcadSelectionSet", input_);
    if (trimmed(*typed).empty()) return chosen;
    const auto reading = read_selection(*document_, *typed);
    if (!reading.value) {
      input_.say("\r\n" + reading.refused);
      continue;
    }
    chosen.insert(chosen.end(), reading.value->begin(), reading.value->end());
  }
}

/// The entities of the argument: an object or a list of them.
SelectionSet::Entities SelectionSet::given(const Arguments& arguments) const {
  basic::List objects{arguments[0]};
  if (const auto* list = arguments[0].if_is<basic::List>()) objects = *list;
  Entities found;
  for (const Value& item : objects) {
    const auto* reference = item.if_is<basic::Reference>();
    const auto entity = reference ? std::dynamic_pointer_cast<EntityObject>(*reference) : nullptr;
    if (!entity || entity->document() != document_ || entity->record().is(Record::part)) {
      throw invalid_argument("Items", arguments.method());
    }
    if (entity->record().is(Record::erased)) throw failure(HostError::was_erased);
    found.push_back(entity->id());
  }
  return found;
}

void SelectionSet::add(const Entities& chosen) {
  std::unordered_set<RecordId> present(state_->entities.begin(), state_->entities.end());
  for (const RecordId id : chosen) {
    if (present.insert(id).second) state_->entities.push_back(id);
  }
}

}  // namespace velmar::embedded
