#include <algorithm>
#include <filesystem>
#include <map>
#include <set>

#include "drawing/dimension/drawn_kinds.h"
#include "embedded/corpus_operations.h"
#include "embedded/error_numbers.h"
#include "embedded/raw_records.h"

// Every operation on entities of every kind in every sound drawing of the corpus
// (tests/corpus/README.md): what was saved holds what was meant, and nothing else has changed.

namespace velmar::embedded {
namespace {

using drawing::Drawing;
using drawing::RecordId;
using Kinds = std::set<std::string>;

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
    Done done{look_of(*object), object, scene_.document->drawing.tags(object->id())};
    const std::string handle = text_of(*object, Member::Handle),
                      kind = text_of(*object, Member::ObjectName);
    try {
      operation.apply(*object, done);
    } catch (const basic::Failure& failure) {
      const bool is_expected = failure.number == unknown_member ||
                               failure.number == no_such_action ||
                               failure.number == on_locked_layer;
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
      if (id == RecordId::none) continue;
      operation->verify(done, *make_entity(saved.document, id));
      const bool has_preview = drawing::is_kept_dimension(entity.record().kind);
      expect_same_but(*operation, has_preview, done.tags, drawing.tags(id));
    }
    expect_others_unchanged(drawing);
  }

  /// The picture for programs that do not know the kind may go, as it shows the old place.
  static bool is_of_preview(const drawing::TagValue& tag) {
    return tag.code == 160 || tag.code == 310;
  }

  static void expect_same_but(const Operation& operation, bool has_preview,
                              std::vector<drawing::TagValue> before,
                              const std::vector<drawing::TagValue>& after) {
    for (const drawing::TagValue& tag : after) {
      const auto same = std::ranges::find(before, tag);
      if (same != before.end()) {
        before.erase(same);
      } else {
        EXPECT_TRUE(operation.may_differ(tag)) << "has another tag of code " << tag.code;
      }
    }
    for (const drawing::TagValue& tag : before) {
      if (has_preview && is_of_preview(tag)) continue;
      EXPECT_TRUE(operation.may_differ(tag)) << "lost a tag of code " << tag.code;
    }
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
    const auto size = std::filesystem::file_size(path);
    const std::size_t rounds = size < 100'000 ? all.size() : size < 1'000'000 ? 2 : 1;
    for (std::size_t number = 0; number < rounds; ++number) done += Round(path, number).run(all);
  }
  EXPECT_GT(done, 2000U);
}

}  // namespace
}  // namespace velmar::embedded
