#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "drawing/drawing.h"
#include "sample_text.h"

// Steps that are taken back and done again: on drawings of others with edits of every sort in
// random order, and the cases that chance rarely meets.

namespace velmar::drawing {
namespace {

Entity new_line(double x) {
  Entity entity;
  entity.common.layer = "Walls";
  entity.body = Line{.start = {x, 0, 0}, .end = {x, 1, 0}};
  return entity;
}

/// One edit that a drawing may refuse, which then is none.
class RandomEdits {
 public:
  RandomEdits(Drawing& drawing, unsigned seed) : drawing_(drawing), random_(seed) {}

  void edit() {
    constexpr void (RandomEdits::*edits[])() = {
        &RandomEdits::move,         &RandomEdits::move,           &RandomEdits::recolour,
        &RandomEdits::erase,        &RandomEdits::erase,          &RandomEdits::add,
        &RandomEdits::copy,         &RandomEdits::add_layer,      &RandomEdits::write_layer,
        &RandomEdits::rename_block, &RandomEdits::erase_block,    &RandomEdits::add_block,
        &RandomEdits::purge,        &RandomEdits::edit_layouts,   &RandomEdits::activate,
        &RandomEdits::write_xdata,  &RandomEdits::add_text_style, &RandomEdits::erase_vertex};
    try {
      (this->*edits[below(std::size(edits))])();
    } catch (const Error&) {
    }
  }
  std::size_t below(std::size_t end) { return random_() % end; }

 private:
  RecordId any(SpaceId space) {
    const auto entities = drawing_.entities(space);
    if (entities.empty()) throw Error("none");
    return entities[below(entities.size())];
  }
  RecordId any() { return any(any_space()); }
  SpaceId any_space() {
    const auto id = static_cast<SpaceId>(below(drawing_.spaces().size()));
    return below(2) == 0 || drawing_.spaces()[index(id)].erased ? SpaceId::model : id;
  }
  std::string name() { return "N" + std::to_string(random_() % 1000); }
  SpaceId sheet() {
    const auto& layouts = drawing_.layouts();
    const SpaceId space = layouts[below(layouts.size())].space;
    if (space == SpaceId::model || space == SpaceId::none) throw Error("no sheet");
    return space;
  }

  void move() {
    const RecordId id = any();
    Entity entity = drawing_.read(id);
    if (auto* moved = std::get_if<Line>(&entity.body)) moved->end.x += 1.25;
    if (auto* moved = std::get_if<Text>(&entity.body)) moved->text += "+";
    if (auto* moved = std::get_if<Circle>(&entity.body)) moved->radius += 1;
    drawing_.write(id, entity);
  }
  void recolour() {
    const RecordId id = any();
    Common common = drawing_.read_common(id);
    common.color = 1 + static_cast<std::int32_t>(below(9));
    common.layer = name();
    drawing_.write_common(id, common);
  }
  void erase() {
    for (int i = 0; i < 3; ++i) drawing_.erase(any());
  }
  void add() { drawing_.add(any_space(), new_line(static_cast<double>(below(100)))); }
  void copy() { drawing_.copy(any()); }
  void add_layer() {
    LayerRow row;
    row.name = name();
    const bool has_table = drawing_.layers().front().record != RecordId::none;
    if (has_table) drawing_.add_layer(row);  // else it is none of the file
  }
  void write_layer() {
    const auto id = static_cast<LayerId>(below(drawing_.layers().size()));
    LayerRow row = drawing_.layer(id);
    if (row.name == "0" || drawing_.layer(id).undone) return;
    row.name = name();
    if (!drawing_.find_layer(row.name)) drawing_.write_layer(id, row);
  }
  void rename_block() {
    const SpaceId id = any_space();
    if (id != SpaceId::model && !drawing_.spaces()[index(id)].is_layout) {
      drawing_.rename_block(id, name());
    }
  }
  void erase_block() { drawing_.erase_unused_block(any_space()); }
  void add_block() { drawing_.add(drawing_.add_block(name(), {}), new_line(1)); }
  void purge() { drawing_.purge(); }
  void edit_layouts() {
    const std::size_t what = below(4);
    if (what == 0) drawing_.add_layout(name());
    if (what == 1) drawing_.erase_layout(sheet());
    if (what == 2) drawing_.rename_layout(sheet(), name());
    if (what == 3) drawing_.move_tab(sheet(), 1);
  }
  void activate() { drawing_.activate_layout(sheet()); }
  void write_xdata() { drawing_.write_xdata(any(), {{1001, name()}, {1000, "text"}}); }
  void add_text_style() {
    const std::string style = name();
    if (!drawing_.has_row("STYLE", style)) drawing_.add_text_style(style);
  }
  void erase_vertex() {
    for (const RecordId id : drawing_.entities(SpaceId::model)) {
      Entity entity = drawing_.read(id);
      auto* polyline = std::get_if<Polyline>(&entity.body);
      if (polyline == nullptr || polyline->vertices.size() < 3) continue;
      polyline->vertices.resize(polyline->vertices.size() + below(3) - 1);
      drawing_.write_body(id, entity.body);
    }
  }

  Drawing& drawing_;
  std::mt19937 random_;
};

std::vector<std::filesystem::path> drawings_of_others() {
  std::vector<std::filesystem::path> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(VELMAR_CORPUS)) {
    const bool fits = entry.is_regular_file() && entry.file_size() < 1'000'000;
    const auto& path = entry.path();
    if (fits && path.extension() == ".dxf" && path.parent_path().filename() != "bad") {
      found.push_back(path);
    }
  }
  std::sort(found.begin(), found.end());
  return found;
}

class History : public testing::TestWithParam<std::filesystem::path> {};

INSTANTIATE_TEST_SUITE_P(Corpus, History, testing::ValuesIn(drawings_of_others()),
                         [](const auto& test) {
                           std::string name = test.param.lexically_relative(VELMAR_CORPUS).string();
                           for (char& c : name) c = std::isalnum(c) ? c : '_';
                           return name;
                         });

/// What the drawing would save, and what it says of its lists.
std::string picture(const Drawing& drawing) {
  std::string lists;
  for (const Layer& layer : drawing.layers()) {
    const bool is_row = layer.record != RecordId::none;
    const bool is_gone = is_row && drawing.record(layer.record).is(Record::erased);
    if (!layer.undone && !is_gone) lists += "layer " + layer.name + "\n";
  }
  for (std::uint32_t i = 0; i < drawing.spaces().size(); ++i) {
    const Space& space = drawing.spaces()[i];
    if (space.erased) continue;
    const std::size_t count = drawing.entity_count(static_cast<SpaceId>(i));
    lists += "space " + space.name + " " + std::to_string(count) + "\n";
  }
  for (const Layout& layout : drawing.layouts()) {
    lists += "layout " + layout.name + " " + std::to_string(layout.tab) + "\n";
  }
  for (const std::string_view table : {"LTYPE", "STYLE", "DIMSTYLE", "APPID"}) {
    for (const std::string& name : drawing.table(table)) lists += "row " + name + "\n";
  }
  return lists + drawing.bytes();
}

/// The line of each that the other has not; empty where they are the same.
std::string first_difference(const std::string& a, const std::string& b) {
  if (a == b) return {};
  const auto [at, ignored] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
  const auto place = static_cast<std::size_t>(at - a.begin());
  const std::size_t begin = a.rfind('\n', place) + 1;
  return a.substr(begin, a.find('\n', place) - begin) + " / " +
         b.substr(begin, b.find('\n', place) - begin);
}

/// Steps back and forth at random are at every point the bytes that were there when they were made.
TEST_P(History, IsTheSameAtEveryStep) {
  Drawing drawing = Drawing::open(GetParam());
  drawing.keep_history();
  RandomEdits random(drawing, 1);
  std::vector<std::string> pictures{picture(drawing)};
  std::size_t at = 0;
  const auto back = [&] {
    ASSERT_EQ(drawing.undo().has_value(), at > 0);
    if (at > 0) --at;
    ASSERT_EQ(first_difference(picture(drawing), pictures[at]), "") << "back at step " << at;
  };
  const auto forth = [&] {
    ASSERT_EQ(drawing.redo().has_value(), at + 1 < pictures.size());
    if (at + 1 < pictures.size()) ++at;
    ASSERT_EQ(first_difference(picture(drawing), pictures[at]), "") << "forth at step " << at;
  };
  for (int turn = 0; turn < 60; ++turn) {
    const std::size_t what = random.below(8);
    if (what == 0) back();
    if (what == 1) forth();
    if (HasFatalFailure()) return;
    if (what < 2) continue;
    const std::uint64_t before = drawing.edition();
    for (std::size_t i = 0; i <= random.below(4); ++i) random.edit();
    drawing.end_step("edits");
    if (drawing.edition() == before) continue;
    pictures.resize(++at);
    pictures.push_back(picture(drawing));
  }

  EXPECT_GT(pictures.size(), 5u);
  while (at + 1 < pictures.size() && !HasFatalFailure()) forth();
  while (at > 0 && !HasFatalFailure()) back();
  EXPECT_FALSE(drawing.is_changed());
  EXPECT_TRUE(drawing.changes().empty());
}

Drawing drawing_with_history() {
  Drawing drawing = Drawing::read(drawing_of("AC1015", walls_line), "plan.dxf");
  drawing.keep_history();
  return drawing;
}

TEST(Step, TellsWhatItDidAndHasAName) {
  Drawing drawing = drawing_with_history();
  EXPECT_FALSE(drawing.end_step("nothing"));
  EXPECT_FALSE(drawing.undo());
  const RecordId added = drawing.add(SpaceId::model, new_line(1));
  const Changes first = drawing.end_step("first").value();
  EXPECT_EQ(first.added, std::vector{drawing.record(added).handle});
  drawing.write(added, new_line(2));
  drawing.erase(drawing.find(0x2F));
  const Changes second = drawing.end_step("second").value();
  EXPECT_TRUE(second.added.empty());
  EXPECT_EQ(second.modified, std::vector{drawing.record(added).handle});
  EXPECT_EQ(second.erased, std::vector<Handle>{0x2F});
  EXPECT_EQ(drawing.undo(), "second");
  EXPECT_EQ(drawing.undo(), "first");
  EXPECT_TRUE(drawing.record(drawing.find(drawing.record(added).handle)).is(Record::erased));
  EXPECT_EQ(drawing.redo(), "first");
}

TEST(Step, ThatWasTakenBackCannotBeDoneAgainAfterAnotherEdit) {
  Drawing drawing = drawing_with_history();
  const Handle old = drawing.record(drawing.add(SpaceId::model, new_line(1))).handle;
  drawing.end_step("first");
  drawing.undo();
  const Handle other = drawing.record(drawing.add(SpaceId::model, new_line(2))).handle;
  EXPECT_NE(old, other);  // a handle is never given twice
  EXPECT_FALSE(drawing.redo());
  EXPECT_EQ(drawing.undo(), "edits");  // of no named step
}

/// What is told as changed is so against what was saved, also for steps from before that.
TEST(Step, IsToldAgainstTheLastSave) {
  const auto file = std::filesystem::temp_directory_path() /
                    ("velmar-history-" + std::to_string(std::random_device{}()) + ".dxf");
  Drawing drawing = drawing_with_history();
  const Handle added = drawing.record(drawing.add(SpaceId::model, new_line(1))).handle;
  drawing.end_step("add");
  drawing.erase(drawing.find(0x2F));
  drawing.end_step("erase");
  drawing.save(file);
  EXPECT_FALSE(drawing.is_changed());
  drawing.undo();
  EXPECT_TRUE(drawing.is_changed());
  EXPECT_EQ(drawing.changes().added, std::vector<Handle>{0x2F});
  drawing.undo();
  EXPECT_EQ(drawing.changes().erased, std::vector{added});
  drawing.save(file);
  drawing.redo();
  EXPECT_EQ(drawing.changes().added, std::vector{added});
  EXPECT_TRUE(drawing.changes().erased.empty());
  drawing.redo();
  EXPECT_EQ(drawing.changes().erased, std::vector<Handle>{0x2F});
  drawing.undo();
  drawing.undo();
  EXPECT_TRUE(drawing.changes().empty());
  EXPECT_FALSE(drawing.is_changed());
  std::filesystem::remove(file);
}

}  // namespace
}  // namespace velmar::drawing
