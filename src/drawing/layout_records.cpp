#include "drawing/layout_records.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "drawing/block_records.h"
#include "drawing/dictionaries.h"
#include "drawing/dxf/record_builder.h"
#include "drawing/history.h"

namespace velmar::drawing {
namespace {

constexpr std::string_view active_sheet = "*Paper_Space";

/// What is saved behind a record, where many are asked for that stand in one line.
class Order {
 public:
  explicit Order(const Store& store) : store_(store) {
    for (const auto& [anchor, line] : store.added_before) {
      for (std::size_t i = 0; i + 1 < line.size(); ++i) following_[line[i]] = line[i + 1];
    }
  }
  RecordId next(RecordId id) const {
    const auto known = following_.find(id);
    return known == following_.end() ? store_.next(id) : known->second;
  }

 private:
  const Store& store_;
  std::unordered_map<RecordId, RecordId> following_;
};

std::vector<RecordId> with_parts(const Store& store, const std::vector<RecordId>& entities) {
  const Order order(store);
  std::vector<RecordId> all;
  for (const RecordId entity : entities) {
    const Record& record = store.at(entity);
    if (record.is(Record::erased)) continue;
    all.push_back(entity);
    if (record.kind != Kind::insert && record.kind != Kind::polyline) continue;
    for (RecordId part = order.next(entity);
         index(part) < store.records.size() && store.at(part).is(Record::part);
         part = order.next(part)) {
      all.push_back(part);
    }
  }
  return all;
}

/// "*Paper_Space0", "*Paper_Space1" ... the first that no block has.
std::string free_sheet_name(const Store& store) {
  if (!store.find_space(active_sheet)) return std::string(active_sheet);
  for (int i = 0;; ++i) {
    std::string name = std::string(active_sheet) + std::to_string(i);
    if (!store.find_space(name)) return name;
  }
}

/// A sheet of 12 by 9 units that no plotter is chosen for. Every group that the DXF reference lists
/// as required is there.
dxf::RecordBuilder layout_record(const Store& store, Handle handle, Handle dictionary) {
  dxf::RecordBuilder record("LAYOUT", store.format);
  record.handle(5, handle).text(102, "{ACAD_REACTORS").handle(330, dictionary).text(102, "}");
  record.owner(dictionary).marker("AcDbPlotSettings");
  record.text(1, "").text(2, "none_device").text(4, "").text(6, "");
  for (int code = 40; code <= 49; ++code) record.real(code, 0);
  record.real(140, 0).real(141, 0).real(142, 1).real(143, 1);
  record.integer(70, 688).integer(72, 0).integer(73, 0).integer(74, 5);
  record.text(7, "").integer(75, 16).real(147, 1);
  if (store.format.version >= "AC1018") record.integer(76, 0).integer(77, 2).integer(78, 300);
  record.real(148, 0).real(149, 0);
  return record;
}

}  // namespace

void move_entities(Store& store, SpaceId space, RecordId before) {
  const std::vector<RecordId> moved = with_parts(store, store.spaces[index(space)].entities);
  if (store.history) store.history->remember_order(store);
  const std::unordered_set<RecordId> set(moved.begin(), moved.end());
  for (auto& [anchor, line] : store.added_before) {
    std::erase_if(line, [&](RecordId id) { return set.contains(id); });
  }
  const auto anchor = static_cast<std::uint32_t>(before);
  for (const RecordId id : moved) {
    const auto number = static_cast<std::uint32_t>(id);
    if (!store.at(id).is(Record::added)) {
      store.remember(id);
      store.at(id).flags |= Record::moved;
      store.touched.insert(number);
    }
    store.anchors[number] = anchor;
  }
  auto& line = store.added_before[anchor];
  line.insert(line.end(), moved.begin(), moved.end());
  store.edited();
}

void swap_sheets(Store& store, SpaceId sheet) {
  const auto active = store.find_space(active_sheet);
  if (!active || *active == sheet) return;
  const RecordId back = store.spaces[index(*active)].endblk;
  const RecordId front = store.landmarks.end_of_entities;
  if (back == RecordId::none || front == RecordId::none) {
    throw Error(store.name + ": the layout cannot be made the active one: the file has no " +
                (front == RecordId::none ? "ENTITIES section" : "BLOCK of the one that is"));
  }
  move_entities(store, *active, back);
  move_entities(store, sheet, front);
  const std::string name = store.spaces[index(sheet)].name;
  write_block_name(store, *active, name);
  write_block_name(store, sheet, std::string(active_sheet));
}

Layout add_layout_records(Store& store, const std::string& name, std::int32_t tab) {
  const RecordId dictionary = named_dictionary(store, "ACAD_LAYOUT");
  if (dictionary == RecordId::none || store.landmarks.end_of_objects == RecordId::none) {
    throw Error(store.name + ": no layout can be added: the file has no ACAD_LAYOUT dictionary");
  }
  Record record;
  record.kind = Kind::layout;
  Layout layout{name, tab, SpaceId::none, RecordId::none};
  layout.record = store.add(store.landmarks.end_of_objects, record, {});
  const Handle handle = store.give_handle(layout.record);
  layout.space = add_block_records(store, free_sheet_name(store), {}, handle);
  dxf::RecordBuilder bytes = layout_record(store, handle, store.at(dictionary).handle);
  const Point one{1, 1, 1}, limits{12, 9, 0};
  bytes.marker("AcDbLayout").text(1, name).integer(70, 1).integer(71, tab);
  bytes.flat(10, {}).flat(11, limits).point(12, {}).point(14, 1e20 * one).point(15, -1e20 * one);
  bytes.real(146, 0).point(13, {}).point(16, {1, 0, 0}).point(17, {0, 1, 0}).integer(76, 0);
  bytes.handle(330, store.spaces[index(layout.space)].owner);
  store.patches[static_cast<std::uint32_t>(layout.record)] = bytes.bytes();
  add_entry(store, dictionary, name, handle);
  if (store.history) store.history->remember_layouts(store);
  store.layouts.push_back(layout);
  return layout;
}

}  // namespace velmar::drawing
