#include "drawing/history.h"

#include <algorithm>
#include <utility>

#include "drawing/erasing.h"

namespace velmar::drawing {
namespace {

void set_member(std::set<std::uint32_t>& set, std::uint32_t record, bool is_member) {
  if (is_member) {
    set.insert(record);
  } else {
    set.erase(record);
  }
}

bool is_entity(const Record& record) {
  return record.space != SpaceId::none && !record.is(Record::part);
}

}  // namespace

History::History(const Store& store) { begin_step(store); }

History::Marks History::marks(const Store& store) {
  Marks marks;
  marks.records = static_cast<std::uint32_t>(store.records.size());
  marks.layers = static_cast<std::uint32_t>(store.layers.size());
  marks.spaces = static_cast<std::uint32_t>(store.spaces.size());
  marks.rows = store.rows.size();
  marks.content = store.content;
  marks.handle_seed = store.handle_seed;
  marks.gave_handles = store.gave_handles;
  marks.end_of_blocks = store.landmarks.end_of_blocks;
  return marks;
}

void History::begin_step(const Store& store) {
  open_ = {};
  open_.begin = marks(store);
  open_.saves = saves_;
}

History::Standing History::standing_of(const Store& store, std::uint32_t record) {
  return {store.added_since_save.contains(record), store.modified_since_save.contains(record),
          store.erased_since_save.contains(record)};
}

void History::remember(Store& store, RecordId id) {
  const auto number = static_cast<std::uint32_t>(id);
  Record& record = store.at(id);
  if (number >= open_.begin.records || record.is(Record::remembered)) return;
  RecordState state{number, record, standing_of(store, number)};
  const auto patch = store.patches.find(number);
  if (patch != store.patches.end()) state.patch = patch->second;
  state.is_a_drawing = store.draws_dimension(number);
  open_.records.push_back(std::move(state));
  record.flags |= Record::remembered;
}

void History::remember(const Store& store, LayerId id) {
  if (index(id) < open_.begin.layers) open_.layers.emplace(id, store.layers[index(id)]);
}

void History::remember(const Store& store, SpaceId id) {
  if (index(id) >= open_.begin.spaces || open_.spaces.contains(id)) return;
  const Space& now = store.spaces[index(id)];
  Space head;
  head.name = now.name;
  head.owner = now.owner;
  head.block = now.block;
  head.endblk = now.endblk;
  head.flags = now.flags;
  head.base = now.base;
  head.path = now.path;
  head.is_layout = now.is_layout;
  head.erased = now.erased;
  open_.spaces.emplace(id, SpaceState{std::move(head)});
}

void History::take(Store& store, SpaceId id) {
  if (index(id) >= open_.begin.spaces) return;
  remember(store, id);
  SpaceState& state = open_.spaces.at(id);
  state.space.entities = std::move(store.spaces[index(id)].entities);
  state.whole = true;
}

void History::remember_layouts(const Store& store) {
  if (!open_.layouts) open_.layouts = store.layouts;
}

void History::remember_rows(const Store& store) {
  if (open_.rows) return;
  const auto begin = store.rows.begin();
  open_.rows.emplace(begin, begin + static_cast<std::ptrdiff_t>(open_.begin.rows));
}

void History::remember_order(const Store& store) {
  if (!open_.order) open_.order = Order{store.added_before, store.anchors};
}

/// What was not there before is something erased there.
void History::add_states_of_added(const Store& store) {
  for (std::uint32_t i = open_.begin.records; i < open_.end.records; ++i) {
    RecordState state{i, store.records[i], {}};
    state.record.flags |= Record::erased;
    open_.records.push_back(std::move(state));
  }
  for (std::uint32_t i = open_.begin.layers; i < open_.end.layers; ++i) {
    Layer layer = store.layers[i];
    layer.undone = true;
    open_.layers.emplace(static_cast<LayerId>(i), std::move(layer));
  }
  for (std::uint32_t i = open_.begin.spaces; i < open_.end.spaces; ++i) {
    SpaceState state{{}, true};
    state.space.erased = true;
    open_.spaces.emplace(static_cast<SpaceId>(i), std::move(state));
  }
}

std::optional<Changes> History::end_step(Store& store, std::string name) {
  settle_erased(store);
  open_.end = marks(store);
  for (RecordState& state : open_.records) {
    std::uint16_t& flags = store.records[state.number].flags;
    state.edited = (flags & Record::edited) != 0;
    flags &= static_cast<std::uint16_t>(~(Record::remembered | Record::edited));
  }
  std::optional<Changes> told;
  if (open_.end.content != open_.begin.content || open_.end.records != open_.begin.records) {
    told = changes(store);
    open_.name = std::move(name);
    add_states_of_added(store);
    done_.push_back(std::move(open_));
    undone_.clear();
  }
  begin_step(store);
  return told;
}

/// What the open step did, before states of added records are among its own.
Changes History::changes(const Store& store) const {
  Changes told;
  std::vector<std::uint32_t> modified, erased;
  for (const RecordState& state : open_.records) {
    const Record& record = store.records[state.number];
    if (!is_entity(record) || state.is_a_drawing) continue;
    const bool was_there = !state.record.is(Record::erased);
    if (was_there && record.is(Record::erased)) erased.push_back(state.number);
    if (!record.is(Record::erased) && state.edited) modified.push_back(state.number);
  }
  for (std::vector<std::uint32_t>* const list : {&modified, &erased}) {
    std::sort(list->begin(), list->end());
  }
  for (const std::uint32_t record : modified) told.modified.push_back(store.records[record].handle);
  for (const std::uint32_t record : erased) told.erased.push_back(store.records[record].handle);
  for (std::uint32_t i = open_.begin.records; i < open_.end.records; ++i) {
    const Record& record = store.records[i];
    if (is_entity(record) && !record.is(Record::erased) && !store.draws_dimension(i)) {
      told.added.push_back(record.handle);
    }
  }
  return told;
}

void Drawing::keep_history() {
  if (!store_->history) store_->history = std::make_shared<History>(*store_);
}

std::optional<Changes> Drawing::end_step(std::string name) {
  return store_->history ? store_->history->end_step(*store_, std::move(name)) : std::nullopt;
}

std::optional<std::string> Drawing::undo() {
  return store_->history ? store_->history->undo(*store_) : std::nullopt;
}

std::optional<std::string> Drawing::redo() {
  return store_->history ? store_->history->redo(*store_) : std::nullopt;
}

std::optional<std::string> History::undo(Store& store) {
  end_step(store, "edits");
  if (done_.empty()) return std::nullopt;
  undone_.push_back(std::move(done_.back()));
  done_.pop_back();
  swap(store, undone_.back(), undone_.back().begin);
  begin_step(store);
  return undone_.back().name;
}

std::optional<std::string> History::redo(Store& store) {
  end_step(store, "edits");  // after which nothing can be done again
  if (undone_.empty()) return std::nullopt;
  done_.push_back(std::move(undone_.back()));
  undone_.pop_back();
  swap(store, done_.back(), done_.back().end);
  begin_step(store);
  return done_.back().name;
}

void History::saved(const Store& store) {
  ++saves_;
  if (store.content == open_.begin.content) open_.saves = saves_;
}

void History::swap(Store& store, Step& step, const Marks& to) const {
  for (RecordState& state : step.records) swap_record(store, step, state);
  step.saves = saves_;
  for (auto& [id, layer] : step.layers) std::swap(store.layers[index(id)], layer);
  swap_spaces(store, step);
  if (step.layouts) store.layouts.swap(*step.layouts);
  swap_rows(store, step);
  swap_order(store, step);
  store.space_names.forget();
  store.layer_names.forget();
  store.looks.clear();
  store.any_erased = true;
  store.gave_handles = to.gave_handles;
  store.handle_seed = to.handle_seed;
  store.landmarks.end_of_blocks = to.end_of_blocks;
  ++store.edition;
  store.content = to.content;
}

/// How an entity stands after the swap, where a save lies between the step and now.
History::Standing History::standing_after(const Record& now, const Standing& standing,
                                          const RecordState& then) {
  if (!is_entity(now)) return {};
  const bool in_file = now.is(Record::erased) ? standing.erased : !standing.added;
  if (then.record.is(Record::erased)) return {false, false, in_file};
  if (!in_file) return {true, false, false};
  return {false, then.edited || standing.modified, false};
}

void History::swap_record(Store& store, const Step& step, RecordState& state) const {
  Record& record = store.records[state.number];
  const Standing now = standing_of(store, state.number);
  const Standing then = step.saves == saves_ ? state.standing : standing_after(record, now, state);
  set_member(store.added_since_save, state.number, then.added);
  set_member(store.modified_since_save, state.number, then.modified);
  set_member(store.erased_since_save, state.number, then.erased);
  state.standing = now;
  std::swap(record, state.record);
  if (state.number >= step.begin.records) return;  // added by the step: its bytes stay
  std::optional<std::string> patch;
  const auto held = store.patches.find(state.number);
  if (held != store.patches.end()) patch = std::move(held->second);
  if (state.patch) {
    store.patches[state.number] = std::move(*state.patch);
  } else if (held != store.patches.end()) {
    store.patches.erase(held);
  }
  state.patch = std::move(patch);
}

void History::swap_spaces(Store& store, Step& step) {
  for (auto& [id, state] : step.spaces) {
    Space& space = store.spaces[index(id)];
    std::swap(space, state.space);
    if (!state.whole) space.entities.swap(state.space.entities);
  }
}

void History::swap_rows(Store& store, Step& step) {
  if (step.rows) return store.rows.swap(*step.rows);
  if (!step.later_rows.empty()) {
    std::move(step.later_rows.begin(), step.later_rows.end(), std::back_inserter(store.rows));
    return step.later_rows.clear();
  }
  const auto begin = store.rows.begin() + static_cast<std::ptrdiff_t>(step.begin.rows);
  step.later_rows.assign(std::make_move_iterator(begin), std::make_move_iterator(store.rows.end()));
  store.rows.erase(begin, store.rows.end());
}

void History::swap_order(Store& store, Step& step) {
  if (!step.order) return;
  store.added_before.swap(step.order->added_before);
  store.anchors.swap(step.order->anchors);
  // What the step and those after it added has a place still, though none that is saved.
  const auto end = static_cast<std::uint32_t>(store.records.size());
  for (std::uint32_t i = step.begin.records; i < end; ++i) {
    if (store.anchors.contains(i)) continue;
    const std::uint32_t anchor = step.order->anchors.at(i);
    store.anchors[i] = anchor;
    store.added_before[anchor].push_back(static_cast<RecordId>(i));
  }
}

}  // namespace velmar::drawing
