#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "drawing/store.h"

namespace velmar::drawing {

/// What was edited, in steps that can be taken back and done again. A step keeps what it touched as
/// that was before; taking it back swaps the two, and so does doing it again. What a step added
/// stays in the lists of the store, as something erased, so that numbers go on meaning what they
/// mean. Costs are linear in what a step touches, but for layouts, which are few, and for the order
/// of records where a step moves whole sheets.
class History {
 public:
  /// The first step begins.
  explicit History(const Store& store);

  // Told before something is changed.
  void remember(Store& store, RecordId id);
  void remember(const Store& store, LayerId id);
  /// Without its entities, whose list only grows.
  void remember(const Store& store, SpaceId id);
  /// A space that is about to be emptied: takes its content.
  void take(Store& store, SpaceId id);
  void remember_layouts(const Store& store);
  void remember_rows(const Store& store);
  /// Which records stand before which.
  void remember_order(const Store& store);

  /// The step ends and the next begins. A step that changed nothing is none.
  std::optional<Changes> end_step(Store& store, std::string name);
  std::optional<std::string> undo(Store& store);
  std::optional<std::string> redo(Store& store);
  void saved(const Store& store);

 private:
  /// How an entity stands in what is told of changes since the last save.
  struct Standing {
    bool added = false, modified = false, erased = false;
  };
  struct RecordState {
    std::uint32_t number = 0;
    Record record;
    Standing standing;
    std::optional<std::string> patch = {};
    bool edited = false;        // its bytes, or those of a part
    bool is_a_drawing = false;  // of a dimension, told of as that
  };
  struct SpaceState {
    Space space;
    bool whole = false;
  };
  struct Order {
    std::map<std::uint32_t, std::vector<RecordId>> added_before;
    std::unordered_map<std::uint32_t, std::uint32_t> anchors;
  };
  /// How long the lists of the store are that only grow, and values that are few.
  struct Marks {
    std::uint32_t records = 0, layers = 0, spaces = 0;
    std::size_t rows = 0;
    std::uint64_t content = 0;
    Handle handle_seed = 0;
    bool gave_handles = false;
    RecordId end_of_blocks = RecordId::none;
  };
  struct Step {
    std::string name;
    Marks begin, end;
    std::uint64_t saves = 0;                // at which of them the standings hold
    std::vector<RecordState> records = {};  // that were there before the step, then added ones
    std::map<LayerId, Layer> layers = {};
    std::map<SpaceId, SpaceState> spaces = {};
    std::optional<std::vector<Layout>> layouts = {};
    std::optional<std::vector<TableRow>> rows = {};  // where some were taken away
    std::vector<TableRow> later_rows = {};           // else those added, while they are undone
    std::optional<Order> order = {};
  };

  static Marks marks(const Store& store);
  static Standing standing_of(const Store& store, std::uint32_t record);
  static Standing standing_after(const Record& now, const Standing& standing,
                                 const RecordState& then);
  void begin_step(const Store& store);
  void add_states_of_added(const Store& store);
  Changes changes(const Store& store) const;
  void swap(Store& store, Step& step, const Marks& to) const;
  void swap_record(Store& store, const Step& step, RecordState& state) const;
  static void swap_spaces(Store& store, Step& step);
  static void swap_rows(Store& store, Step& step);
  static void swap_order(Store& store, Step& step);

  Step open_;
  std::vector<Step> done_, undone_;
  std::uint64_t saves_ = 0;
};

}  // namespace velmar::drawing
