#include <cmath>
#include <filesystem>
#include <functional>
#include <map>
#include <numbers>
#include <optional>
#include <set>

#include "drawing/geometry/matrix.h"
#include "embedded/entity_scene.h"
#include "embedded/raw_records.h"

// Every operation on entities of every kind in every sound drawing of the corpus
// (tests/corpus/README.md): what was saved holds what was meant, and nothing else has changed.

namespace velmar::embedded {
namespace {

using drawing::Box;
using drawing::Drawing;
using drawing::Matrix;
using drawing::RecordId;
using Kinds = std::set<std::string>;

constexpr std::int32_t on_locked_layer = -2145386413, no_such_member = 438, not_supported = 445;

/// What is compared of an entity before and after.
struct Look {
  std::optional<Box> box;
  std::optional<double> area, length;
};

std::optional<Value> value_of(host::Object& object, Member member) {
  try {
    return object.get(member);
  } catch (const basic::Failure&) {
    return std::nullopt;
  }
}

std::optional<double> number_of(host::Object& object, Member member) {
  const auto value = value_of(object, member);
  return value ? std::optional(basic::convert<double>(*value)) : std::nullopt;
}

std::optional<Box> box_of(host::Object& object) {
  std::vector<Value> corners(2);
  if (failure_of([&] { object.call(Member::GetBoundingBox, corners); }) != 0) return std::nullopt;
  Box box;
  for (const Value& corner : corners) {
    const auto& numbers = *corner.if_is<basic::Doubles>();
    box.add(Point{numbers.at(0), numbers.at(1), numbers.at(2)});
  }
  return box;
}

Look look_of(host::Object& object) {
  return {box_of(object), number_of(object, Member::Area), number_of(object, Member::Length)};
}

std::string text_of(host::Object& object, Member member) {
  return basic::convert<std::string>(object.get(member));
}

using Object = std::shared_ptr<host::Object>;

/// What was done, for the time when the drawing is read again.
struct Done {
  Look before;
  Object object;      // what to look at: the entity itself or a copy
  Value wanted = {};  // of the member that was put
};

struct Operation {
  std::string name;
  /// Fails where the kind does not allow it.
  std::function<void(host::Object&, Done&)> apply;
  std::function<void(const Done&, host::Object& saved)> verify;
  std::set<int> codes = {};  // the group codes that may differ; empty: any
};

bool is_near(double a, double b, double size) { return std::abs(a - b) <= 1e-7 * (1 + size); }

std::string text(const Box& box) {
  std::ostringstream out;
  out << box.min.x << "," << box.min.y << "," << box.min.z << " " << box.max.x << "," << box.max.y
      << "," << box.max.z;
  return out.str();
}

void expect_mapped(const Done& done, host::Object& after, const Matrix& map, const Kinds& redrawn) {
  const Look now = look_of(after);
  const auto& before = done.before;
  const bool is_redrawn = redrawn.contains(text_of(after, Member::ObjectName));
  EXPECT_TRUE(is_redrawn || now.box.has_value() == before.box.has_value());
  if (now.box && before.box && !is_redrawn) {
    Box image;
    image.add(map(before.box->min));
    image.add(map(before.box->max));
    const double away = norm(now.box->min - image.min) + norm(now.box->max - image.max);
    EXPECT_TRUE(is_near(away, 0, norm(image.min) + norm(image.max)))
        << text(*now.box) << " in place of " << text(image);
  }
  const auto expect_grown = [](std::optional<double> was, std::optional<double> is, double by) {
    EXPECT_EQ(was.has_value(), is.has_value());
    const bool is_right = !was || !is || is_near(*is, *was * by, *was * by);
    EXPECT_TRUE(is_right) << *was << " became " << *is;
  };
  const double factor = norm(map.x);
  expect_grown(before.area, now.area, factor * factor);
  expect_grown(before.length, now.length, factor);
}

/// A method that maps the entity. Boxes of `redrawn` kinds are left alone.
template <class... Arguments>
Operation mapping(Member member, Matrix map, Kinds redrawn, Arguments... arguments) {
  return {std::string(host::spelling(member)),
          [=](host::Object& object, Done&) { EntityScene::call_on(object, member, arguments...); },
          [=](const Done& done, host::Object& saved) { expect_mapped(done, saved, map, redrawn); }};
}

/// One that gives a new entity.
template <class... Arguments>
Operation copying(Member member, Matrix map, Kinds redrawn, Arguments... arguments) {
  Operation operation = mapping(member, map, std::move(redrawn), arguments...);
  operation.apply = [=](host::Object& object, Done& done) {
    done.object = EntityScene::as_object(EntityScene::call_on(object, member, arguments...));
  };
  return operation;
}

/// `change` gives the value to put from the one that is there.
Operation putting(Member member, std::function<Value(const Value&)> change,
                  std::set<int> codes = {}) {
  return {"put of " + std::string(host::spelling(member)),
          [=](host::Object& object, Done& done) {
            done.wanted = change(object.get(member));
            object.put(member, done.wanted);
          },
          [=](const Done& done, host::Object& saved) {
            expect_value(saved.get(member), done.wanted, "read again");
          },
          std::move(codes)};
}

Operation putting(Member member, const Value& value, std::set<int> codes = {}) {
  return putting(
      member, [=](const Value&) { return value; }, std::move(codes));
}

Value shifted(const Value& value) {
  basic::Doubles numbers = *value.if_is<basic::Doubles>();
  numbers.at(0) += 1.5;
  numbers.at(1) -= 2.25;
  return numbers;
}

Value enlarged(const Value& value) { return basic::convert<double>(value) * 1.25; }
Value increased(const Value& value) { return basic::convert<double>(value) + 0.375; }

/// That of a text which is not aligned to the left follows from its alignment point.
Operation putting_insertion_point() {
  Operation operation = putting(Member::InsertionPoint, shifted);
  const auto put = operation.apply;
  operation.apply = [=](host::Object& object, Done& done) {
    const auto alignment = number_of(object, Member::Alignment);
    if (alignment && *alignment != 0) throw basic::Failure(basic::no_such_member);
    put(object, done);
  };
  return operation;
}

/// The whole stays as it was.
Operation exploding() {
  return {"Explode",
          [](host::Object& object, Done&) { EntityScene::call_on(object, Member::Explode); },
          [](const Done& done, host::Object& saved) { expect_mapped(done, saved, {}, {}); }};
}

Operation deleting() {
  return {"Delete",
          [](host::Object& object, Done&) { EntityScene::call_on(object, Member::Delete); },
          [](const Done&, host::Object&) { ADD_FAILURE() << "is still there"; }};
}

const std::set<int> color_codes{62, 420, 430}, layer_codes{8}, linetype_codes{6}, scale_codes{48},
    visible_codes{60};

std::vector<Operation> operations() {
  const Point base{3, 4, 0};
  // Drawn anew with upright texts, or with texts of another size.
  const Kinds dimensions{"AcDbAlignedDimension",      "AcDbRotatedDimension",
                         "AcDb2LineAngularDimension", "AcDb3PointAngularDimension",
                         "AcDbRadialDimension",       "AcDbDiametricDimension",
                         "AcDbOrdinateDimension"};
  Kinds upright = dimensions;  // lines of different lengths stay readable
  upright.insert("AcDbMText");
  return {
      mapping(Member::Move, drawing::translation({12.5, -7.25, 2}), {}, at(0, 0),
              at(12.5, -7.25, 2)),
      putting(Member::Color, 3, color_codes),
      mapping(Member::Rotate, drawing::rotation(base, drawing::z_axis, std::numbers::pi / 2),
              dimensions, at(3, 4), std::numbers::pi / 2),
      putting(Member::TextString, "Door 7"),
      putting(Member::Layer, "0", layer_codes),
      mapping(Member::ScaleEntity, drawing::scaling(base, 2), dimensions, at(3, 4), 2.0),
      putting(Member::Coordinates, shifted),
      putting(Member::Height, enlarged),
      copying(Member::Copy, Matrix{}, {}),
      putting(Member::Elevation, increased),
      putting(Member::TextPosition, shifted),
      putting(Member::Linetype, "Continuous", linetype_codes),
      putting_insertion_point(),
      putting(Member::StartPoint, shifted),
      copying(Member::Mirror, drawing::reflection({1, 0, 0}, drawing::x_axis), upright, at(1, 0),
              at(1, 5)),
      putting(Member::Radius, enlarged),
      putting(Member::Center, shifted),
      putting(Member::LinetypeScale, 2.5, scale_codes),
      putting(Member::TextOverride, "<> typ."),
      putting(Member::Rotation, increased),
      putting(Member::Visible, false, visible_codes),
      exploding(),
      deleting(),
  };
}

std::vector<std::filesystem::path> sound_drawings() {
  std::vector<std::filesystem::path> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(VELMAR_CORPUS)) {
    const std::string extension = entry.path().extension().string();
    const bool is_sound = entry.path().parent_path().filename() != "bad";
    if (is_sound && (extension == ".dxf" || extension == ".DXF")) found.push_back(entry.path());
  }
  std::ranges::sort(found);
  return found;
}

/// Faults of the references, without the places, which change.
std::set<std::string> faults(const Drawing& drawing) {
  std::set<std::string> texts;
  for (const drawing::Warning& warning : drawing.broken_references()) texts.insert(warning.text);
  return texts;
}

/// A drawing in which each of some entities undergoes one operation.
class Round {
 public:
  Round(const std::filesystem::path& path, std::size_t number)
      : path_(path.filename().string()), scene_(Drawing::open(path)), number_(number) {
    source_ = raw_records(scene_.document->drawing);
    faults_ = faults(scene_.document->drawing);
    problems_ = scene_.document->drawing.check().size();
    for (const drawing::Warning& warning : scene_.document->drawing.warnings()) {
      warnings_.insert(warning.text);
    }
  }

  std::size_t run(const std::vector<Operation>& operations) {
    std::map<std::string, std::size_t> seen;
    constexpr std::size_t enough_of_a_kind = 30;
    for (const RecordId id : originals()) {
      const auto object = make_entity(scene_.document, id);
      const std::size_t place = seen[text_of(*object, Member::ObjectName)]++;
      if (place >= enough_of_a_kind) continue;
      for (std::size_t i = 0; i < operations.size(); ++i) {
        const auto& operation = operations[(place + number_ + i) % operations.size()];
        if (apply(operation, object)) break;
      }
    }
    verify();
    return done_.size();
  }

 private:
  std::vector<RecordId> originals() const {
    const Drawing& drawing = scene_.document->drawing;
    std::vector<RecordId> ids;
    for (std::uint32_t i = 0; i < drawing.spaces().size(); ++i) {
      const auto space = static_cast<drawing::SpaceId>(i);
      if (i > 0 && !drawing.spaces()[i].is_layout) continue;
      const auto entities = drawing.entities(space);
      ids.insert(ids.end(), entities.begin(), entities.end());
    }
    return ids;
  }

  bool apply(const Operation& operation, const std::shared_ptr<EntityObject>& object) {
    Done done{look_of(*object), object};
    const std::string handle = text_of(*object, Member::Handle),
                      kind = text_of(*object, Member::ObjectName);
    try {
      operation.apply(*object, done);
    } catch (const basic::Failure& failure) {
      const bool is_expected = failure.number == no_such_member ||
                               failure.number == not_supported || failure.number == on_locked_layer;
      EXPECT_TRUE(is_expected) << what(operation, handle) << kind << ": " << failure.number << " "
                               << failure.description;
      return false;
    }
    done_.push_back({&operation, std::move(done)});
    changed_[drawing::parse_handle(handle)] = &operation;
    return true;
  }

  std::string what(const Operation& operation, const std::string& handle) const {
    return path_ + " #" + handle + " " + operation.name + ": ";
  }

  void verify() const {
    const EntityScene saved = scene_.saved();
    const Drawing& drawing = saved.document->drawing;
    for (const drawing::Warning& warning : drawing.warnings()) {
      EXPECT_TRUE(warnings_.contains(warning.text)) << path_ << ": " << warning.text;
    }
    EXPECT_LE(drawing.check().size(), problems_) << path_;
    for (const std::string& fault : faults(drawing)) {
      EXPECT_TRUE(faults_.contains(fault)) << path_ << " round " << number_ << ": " << fault;
    }
    for (const auto& [operation, done] : done_) {
      const auto& entity = dynamic_cast<EntityObject&>(*done.object);
      const RecordId id = again(entity.id(), drawing);
      SCOPED_TRACE(what(*operation, drawing::handle_text(entity.record().handle)));
      if (id != RecordId::none) operation->verify(done, *make_entity(saved.document, id));
    }
    expect_others_unchanged(drawing);
  }

  /// The entity in the drawing as it was saved: files of R12 need not keep handles. None where it
  /// was erased.
  RecordId again(RecordId id, const Drawing& saved) const {
    const Drawing& drawing = scene_.document->drawing;
    const auto space = drawing.record(id).space;
    const auto entities = drawing.entities(space);
    const auto found = std::ranges::find(entities, id);
    if (found == entities.end()) return RecordId::none;
    const auto saved_entities =
        saved.entities(*saved.find_space(drawing.spaces()[index(space)].name));
    EXPECT_EQ(saved_entities.size(), entities.size());
    return saved_entities.at(static_cast<std::size_t>(found - entities.begin()));
  }

  void expect_others_unchanged(const Drawing& saved) const {
    const auto now = raw_records(saved);
    const auto stripped = without_reactors(now);
    std::size_t nameless = 0, nameless_touched = 0;
    for (const auto& [handle, operation] : changed_) {
      nameless_touched += records_of(scene_.document->drawing.find(handle));
    }
    for (const RawRecord& record : missing(source_, now)) {
      if (is_touched(record) || stripped.contains(without_reactors(record))) continue;
      if (record.handle == 0 && ++nameless <= nameless_touched) continue;
      ADD_FAILURE() << path_ << " round " << number_ << ": " << record.kind << " "
                    << drawing::handle_text(record.handle) << " is not what it was:\n"
                    << record.bytes.substr(0, 2000);
    }
  }

  /// Of the entity and its parts.
  std::size_t records_of(RecordId id) const {
    return 2 + scene_.document->drawing.parts(id).size();
  }

  bool is_touched(const RawRecord& record) const {
    const Kinds bookkeeping{"SECTION", "TABLE",      "BLOCK_RECORD",
                            "GROUP",   "DICTIONARY", "SORTENTSTABLE"};
    if (bookkeeping.contains(record.kind)) return true;
    const Drawing& drawing = scene_.document->drawing;
    const RecordId id = drawing.find(record.handle);
    if (id == RecordId::none) return false;
    const bool is_part = drawing.record(id).is(drawing::Record::part);
    const RecordId whole = is_part ? drawing.whole(id) : id;
    if (changed_.contains(drawing.record(whole).handle)) return true;
    if (record.kind == "LEADER") return true;  // its note may be gone
    if (record.kind == "HATCH") {              // of what was erased it follows nothing any more
      return std::get<drawing::Hatch>(drawing.read_body(id)).associative == 0;
    }
    const auto space = drawing.record(id).space;
    const bool was_owned = drawing.record(id).is(drawing::Record::erased);
    if (space == drawing::SpaceId::none) return was_owned;
    const drawing::Space& within = drawing.spaces()[index(space)];
    return within.erased || within.name.starts_with("*D");  // what a dimension shows
  }

  std::string path_;
  EntityScene scene_;
  std::size_t number_;
  std::vector<RawRecord> source_;
  std::set<std::string> faults_, warnings_;
  std::size_t problems_ = 0;
  std::vector<std::pair<const Operation*, Done>> done_;
  std::map<drawing::Handle, const Operation*> changed_;
};

TEST(CorpusEditing, SavesWhatWasMeantAndNothingElse) {
  const std::vector<Operation> all = operations();
  std::size_t done = 0;
  for (const auto& path : sound_drawings()) {
    const std::size_t rounds = std::filesystem::file_size(path) < 100'000 ? all.size() : 2;
    for (std::size_t number = 0; number < rounds; ++number) done += Round(path, number).run(all);
  }
  EXPECT_GT(done, 2000U);
}

}  // namespace
}  // namespace velmar::embedded
