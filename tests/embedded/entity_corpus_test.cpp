#include <filesystem>
#include <map>
#include <optional>

#include "basic/strings.h"
#include "embedded/entity_scene.h"

// Properties of every entity of the corpus (tests/corpus/README.md).

namespace velmar::embedded {
namespace {

std::vector<std::filesystem::path> drawings() {
  std::vector<std::filesystem::path> found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(VELMAR_CORPUS)) {
    const std::string extension = entry.path().extension().string();
    if (extension == ".dxf" || extension == ".DXF") found.push_back(entry.path());
  }
  return found;
}

/// Nothing for a file that cannot be opened; some of the corpus are broken.
std::optional<EntityScene> open(const std::filesystem::path& path) {
  try {
    return EntityScene(drawing::Drawing::open(path));
  } catch (const drawing::Error&) {
    return std::nullopt;
  }
}

std::optional<Value> read(host::Object& object, Member member) {
  try {
    return object.get(member);
  } catch (const basic::Failure&) {
    return std::nullopt;
  }
}

bool put(host::Object& object, Member member, const Value& value) {
  return failure_of([&] { object.put(member, value); }) == 0;
}

/// Names come back as the drawing spells them.
bool is_close(const Value& a, const Value& b) {
  const auto same = [](double x, double y) { return std::abs(x - y) <= 1e-9 + 1e-9 * std::abs(x); };
  if (a.is<double>() && b.is<double>()) return same(*a.if_is<double>(), *b.if_is<double>());
  if (const auto* x = a.if_is<basic::Doubles>()) {
    const auto* y = b.if_is<basic::Doubles>();
    return y && std::ranges::equal(*x, *y, same);
  }
  if (a.is<std::string>() && b.is<std::string>()) {
    return basic::equal_ignoring_case(*a.if_is<std::string>(), *b.if_is<std::string>());
  }
  return a == b || a.is<basic::Reference>();
}

// Coordinates, radii and angles that were read can be put, and then nothing has moved.
TEST(EntityCorpus, PutOfWhatWasReadChangesNothing) {
  std::size_t done = 0;
  for (const auto& path : drawings()) {
    const auto scene = open(path);
    if (!scene) continue;
    std::map<std::string, int> seen;
    const auto walk = scene->model()->enumerate();
    for (Value item; walk->next(item);) {
      const auto entity = EntityScene::as_object(item);
      const auto name = basic::convert<std::string>(entity->get(Member::ObjectName));
      constexpr int enough_of_a_kind = 8;
      if (++seen[name] > enough_of_a_kind) continue;
      for (std::uint16_t i = 0; i <= last_member; ++i) {
        const auto member = static_cast<Member>(i);
        const auto before = read(*entity, member);
        if (!before || !put(*entity, member, *before)) continue;
        const auto after = read(*entity, member);
        ASSERT_TRUE(after && is_close(*before, *after))
            << path << " " << basic::convert<std::string>(entity->get(Member::Handle)) << " "
            << name << "." << host::spelling(member);
        ++done;
      }
    }
  }
  EXPECT_GT(done, 3000U);
}

TEST(EntityCorpus, EveryHandleGivesAnObjectThatTellsIt) {
  for (const auto& path : drawings()) {
    const auto scene = open(path);
    if (!scene) continue;
    const drawing::Drawing& drawing = scene->document->drawing;
    for (std::uint32_t i = 0; i < drawing.size(); ++i) {
      const drawing::Handle handle = drawing.record(static_cast<drawing::RecordId>(i)).handle;
      if (handle == 0) continue;
      const std::string text = drawing::handle_text(handle);
      ASSERT_TRUE(scene->get(text, Member::Handle) == Value(text)) << path << " " << text;
      read(*scene->object(text), Member::Area);
    }
  }
}

}  // namespace
}  // namespace velmar::embedded
