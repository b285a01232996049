#include "drawing/convert/dropped_records.h"

#include <algorithm>

#include "drawing/references.h"

namespace velmar::drawing {
namespace {

bool begins_group(const TagValue& tag) {
  const auto* const text = std::get_if<std::string>(&tag.value);
  return tag.code == 102 && text != nullptr && text->starts_with('{');
}

class Dropping {
 public:
  Dropping(TagDrawing& drawing, std::unordered_set<Handle> dropped)
      : drawing_(drawing), dropped_(std::move(dropped)) {}

  void run() {
    follow_owners();
    const auto drop_from = [&](std::vector<TagRecord>& list) {
      std::erase_if(list,
                    [&](const TagRecord& record) { return dropped_.contains(record.handle); });
    };
    drawing_.each_space(drop_from);
    drop_from(drawing_.objects);
    drawing_.each([&](TagRecord& record) { forget(record); });
  }

 private:
  /// What is owned by something that goes, goes with it; and the dictionaries of those.
  void follow_owners() {
    bool grown = true;
    while (grown) {
      const std::size_t before = dropped_.size();
      drawing_.each([&](TagRecord& record) {
        if (dropped_.contains(record.owner)) dropped_.insert(record.handle);
      });
      grown = dropped_.size() != before;
    }
  }

  bool names_dropped(const TagValue& tag) const {
    return reference_of(tag.code) != Reference::none && dropped_.contains(handle_of(tag));
  }

  void forget(TagRecord& record) const {
    if (std::ranges::none_of(record.tags,
                             [&](const TagValue& tag) { return names_dropped(tag); })) {
      return;
    }
    const bool is_dictionary = record.is("DICTIONARY") || record.is("ACDBDICTIONARYWDFLT");
    Tags kept;
    for (std::size_t i = 0; i < record.tags.size(); ++i) {
      TagValue& tag = record.tags[i];
      if (!names_dropped(tag) || tag.code == 1005) {
        kept.push_back(std::move(tag));
        continue;
      }
      // A name stands before what it names, an entity of the drawing order before its place.
      if (is_dictionary && !kept.empty() && kept.back().code == 3) kept.pop_back();
      if (record.is("SORTENTSTABLE") && tag.code == 331) ++i;
    }
    close_groups(kept);
    record.tags = std::move(kept);
  }

  /// A group in braces that holds nothing any more goes too.
  static void close_groups(Tags& tags) {
    for (std::size_t i = 0; i + 1 < tags.size();) {
      const bool is_empty =
          begins_group(tags[i]) && tags[i + 1].code == 102 && !begins_group(tags[i + 1]);
      if (!is_empty) {
        ++i;
        continue;
      }
      const auto at = tags.begin() + static_cast<std::ptrdiff_t>(i);
      tags.erase(at, at + 2);
    }
  }

  TagDrawing& drawing_;
  std::unordered_set<Handle> dropped_;
};

}  // namespace

void drop_records(TagDrawing& drawing, std::unordered_set<Handle> dropped) {
  dropped.erase(0);
  if (!dropped.empty()) Dropping(drawing, std::move(dropped)).run();
}

}  // namespace velmar::drawing
