#include "drawing/convert/lower_release.h"

#include <algorithm>
#include <unordered_set>

#include "drawing/convert/dropped_records.h"
#include "drawing/convert/newer_values.h"
#include "drawing/convert/r12_entities.h"
#include "drawing/convert/r12_header.h"
#include "drawing/convert/release.h"

namespace velmar::drawing {
namespace {

constexpr std::string_view solid_outcome = "dropped: its model cannot be translated";

/// A solid model is kept on one side of the release 2013 alone.
bool loses_models(std::string_view from, std::string_view to) {
  return (from < r2013) != (to < r2013);
}

void drop_kinds(TagDrawing& drawing, std::string_view to, LossList& losses) {
  const bool no_models = loses_models(drawing.version, to);
  std::unordered_set<Handle> dropped;
  drawing.each_space([&](std::vector<TagRecord>& list) {
    for (TagRecord& record : list) {
      if (no_models && is_solid_model(record.kind)) {
        losses.add(record.kind, solid_outcome, record.handle);
        dropped.insert(record.handle);
      } else if (first_version_of_kind(record.kind) > to) {
        if (auto reference = drawn_reference(record)) {
          losses.add(record.kind, "becomes a reference to the block it is drawn with",
                     record.handle);
          record = std::move(*reference);
        } else {
          losses.add(record.kind, "dropped", record.handle);
          dropped.insert(record.handle);
        }
      }
    }
  });
  for (const TagRecord& object : drawing.objects) {
    if (first_version_of_kind(object.kind) <= to) continue;
    if (is_setting(object.kind)) {
      losses.note(object.kind, "dropped", object.handle);
    } else {
      losses.add(object.kind, "dropped", object.handle);
    }
    dropped.insert(object.handle);
  }
  drop_records(drawing, std::move(dropped));
}

/// Since 2010 a spline in a hatch says how many fit points it has.
void add_fit_counts(Tags& tags) {
  Tags with;
  bool in_spline = false;
  for (std::size_t i = 0; i < tags.size(); ++i) {
    const auto* const number = std::get_if<std::int64_t>(&tags[i].value);
    const int code = tags[i].code;
    const int next = i + 1 < tags.size() ? tags[i + 1].code : 0;
    if (in_spline && (code == 72 || code == 97)) {
      in_spline = false;
      const bool is_there = code == 97 && (next == 11 || next == 12 || next == 72 || next == 97);
      if (!is_there) add_integer(with, 97, 0);
    }
    if (code == 72) in_spline = number != nullptr && *number == 4 && next == 94;
    with.push_back(tags[i]);
  }
  tags = std::move(with);
}

std::size_t count_of(TagDrawing& drawing, const std::string& kind) {
  std::size_t count = 0;
  drawing.each([&](const TagRecord& record) { count += record.is(kind) ? 1 : 0; });
  return count;
}

/// Since 2004 a class says how many records of it there are.
void count_classes(TagDrawing& drawing) {
  for (TagRecord& each : drawing.classes) {
    const auto flags = std::ranges::find(each.tags, 90, &TagValue::code);
    if (flags == each.tags.end() || find_tag(each.tags, 91) != nullptr) continue;
    const std::size_t count = count_of(drawing, text_of(each.tags, 1));
    insert_tag(each.tags, static_cast<std::size_t>(flags - each.tags.begin()) + 1,
               {91, static_cast<std::int64_t>(count)});
  }
}

}  // namespace

void lower_release(TagDrawing& drawing, std::string_view to, LossList& losses) {
  drop_kinds(drawing, to, losses);
  drawing.each([&](TagRecord& record) { drop_newer_values(record, to, losses); });
  std::erase_if(drawing.header, [&](const Tags& variable) {
    const auto* const name = std::get_if<std::string>(&variable.front().value);
    return name != nullptr && first_version_of_variable(*name) > to;
  });
  if (to < r2013) {
    std::erase_if(drawing.others,
                  [](const TagSection& section) { return section.name == "ACDSDATA"; });
  }
  if (to < r2004) {
    for (TagRecord& each : drawing.classes) {
      std::erase_if(each.tags, [](const TagValue& tag) { return tag.code == 91; });
    }
  }
  drawing.version = to;
}

void raise_release(TagDrawing& drawing, std::string_view to, LossList& losses) {
  drop_kinds(drawing, to, losses);
  if (to >= r2010) {
    drawing.each_space([](std::vector<TagRecord>& list) {
      for (TagRecord& record : list) {
        if (record.is("HATCH")) add_fit_counts(record.tags);
      }
    });
  }
  if (to >= r2004) count_classes(drawing);
  drawing.version = to;
}

}  // namespace velmar::drawing
