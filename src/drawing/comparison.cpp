#include "drawing/comparison.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <unordered_map>

#include "drawing/name.h"

namespace velmar::drawing {
namespace {

using Tags = std::vector<TagValue>;

/// What tells where a record stands rather than what it is: its handle, its owner, what refers to
/// it, and the groups that applications keep for that.
bool is_reference(int code) {
  return code == 5 || code == 105 || (code >= 320 && code <= 369) || (code >= 390 && code <= 399) ||
         (code >= 480 && code <= 481);
}

/// The content of a record, its parts included, without what only this drawing can mean.
Tags content_of(const Drawing& drawing, RecordId id) {
  Tags content;
  const auto append = [&](RecordId record) {
    bool in_group = false;
    for (TagValue& tag : drawing.tags(record)) {
      if (tag.code == 102) {
        const auto* text = std::get_if<std::string>(&tag.value);
        in_group = text != nullptr && text->starts_with('{');
        continue;
      }
      if (!in_group && !is_reference(tag.code)) content.push_back(std::move(tag));
    }
  };
  append(id);
  for (const RecordId part : drawing.parts(id)) append(part);
  return content;
}

bool same_value(const TagValue& a, const TagValue& b, double tolerance) {
  if (a.code != b.code) return false;
  const auto* x = std::get_if<double>(&a.value);
  const auto* y = std::get_if<double>(&b.value);
  if (x != nullptr && y != nullptr) return *x == *y || std::abs(*x - *y) <= tolerance;
  return a.value == b.value;
}

bool same_content(const Tags& a, const Tags& b, double tolerance) {
  return std::ranges::equal(
      a, b, [&](const TagValue& x, const TagValue& y) { return same_value(x, y, tolerance); });
}

std::string in_words(const TagValue& tag) {
  if (const auto* text = std::get_if<std::string>(&tag.value)) return *text;
  if (const auto* integer = std::get_if<std::int64_t>(&tag.value)) return std::to_string(*integer);
  char text[32];
  std::snprintf(text, sizeof text, "%.15g", std::get<double>(tag.value));
  return text;
}

/// Tag by tag among those of one code, in the order of the codes' first appearance.
std::vector<ValueDifference> value_differences(const Tags& a, const Tags& b, double tolerance) {
  std::map<int, std::pair<std::vector<const TagValue*>, std::vector<const TagValue*>>> by_code;
  for (const TagValue& tag : a) by_code[tag.code].first.push_back(&tag);
  for (const TagValue& tag : b) by_code[tag.code].second.push_back(&tag);
  std::vector<ValueDifference> differences;
  for (const auto& [code, tags] : by_code) {
    const auto& [of_a, of_b] = tags;
    for (std::size_t i = 0; i < std::max(of_a.size(), of_b.size()); ++i) {
      const TagValue* x = i < of_a.size() ? of_a[i] : nullptr;
      const TagValue* y = i < of_b.size() ? of_b[i] : nullptr;
      if (x != nullptr && y != nullptr && same_value(*x, *y, tolerance)) continue;
      differences.push_back({code, x ? in_words(*x) : "", y ? in_words(*y) : ""});
    }
  }
  return differences;
}

/// The first real number of a content, by which likely twins are found.
double first_real(const Tags& content) {
  for (const TagValue& tag : content) {
    if (const auto* real = std::get_if<double>(&tag.value)) return *real;
  }
  return 0;
}

class SpaceComparison {
 public:
  SpaceComparison(const Drawing& a, const Drawing& b, double tolerance, Comparison& result)
      : a_(a), b_(b), tolerance_(tolerance), result_(result) {}

  void compare(std::optional<SpaceId> in_a, std::optional<SpaceId> in_b, const std::string& name) {
    space_ = name;
    const std::vector<RecordId> of_a = in_a ? a_.entities(*in_a) : std::vector<RecordId>();
    const std::vector<RecordId> of_b = in_b ? b_.entities(*in_b) : std::vector<RecordId>();
    const std::vector<Difference> by_handle = match_handles(of_a, of_b);
    match_contents();
    tell(of_a, of_b, by_handle);
  }

 private:
  /// Pairs of one handle and kind; what is left goes into rest_a_ and rest_b_.
  std::vector<Difference> match_handles(const std::vector<RecordId>& of_a,
                                        const std::vector<RecordId>& of_b) {
    rest_a_.clear();
    rest_b_.clear();
    std::unordered_map<Handle, RecordId> handles;
    for (const RecordId id : of_b) handles.emplace(b_.record(id).handle, id);
    std::set<RecordId> taken;
    std::vector<Difference> changed;
    for (const RecordId id : of_a) {
      const auto twin = handles.find(a_.record(id).handle);
      if (twin == handles.end() || a_.kind_name(id) != b_.kind_name(twin->second)) {
        rest_a_.emplace(id, content_of(a_, id));
        continue;
      }
      taken.insert(twin->second);
      const Tags x = content_of(a_, id), y = content_of(b_, twin->second);
      if (same_content(x, y, tolerance_)) {
        ++result_.same;
      } else {
        changed.push_back({Difference::Kind::changed,
                           std::string(a_.kind_name(id)),
                           space_,
                           {},
                           id,
                           twin->second,
                           value_differences(x, y, tolerance_)});
      }
    }
    for (const RecordId id : of_b) {
      if (!taken.contains(id)) rest_b_.emplace(id, content_of(b_, id));
    }
    return changed;
  }

  using ByReal = std::multimap<double, RecordId>;

  ByReal::const_iterator twin_of(const Tags& content, const ByReal& by_real) const {
    const double real = first_real(content);
    const auto end = by_real.upper_bound(real + tolerance_);
    auto twin = by_real.lower_bound(real - tolerance_);
    constexpr int looks = 64;  // of many alike, one of the first is as good as any
    for (int look = 0; twin != end && look < looks; ++look, ++twin) {
      if (same_content(content, rest_b_.at(twin->second), tolerance_)) return twin;
    }
    return by_real.end();
  }

  /// Takes out of the rests what has a twin of the same content.
  void match_contents() {
    ByReal by_real;
    for (const auto& [id, content] : rest_b_) by_real.emplace(first_real(content), id);
    for (auto it = rest_a_.begin(); it != rest_a_.end();) {
      const auto twin = twin_of(it->second, by_real);
      if (twin == by_real.end()) {
        ++it;
        continue;
      }
      ++result_.same;
      rest_b_.erase(twin->second);
      by_real.erase(twin);
      it = rest_a_.erase(it);
    }
  }

  void tell(const std::vector<RecordId>& of_a, const std::vector<RecordId>& of_b,
            std::vector<Difference> changed) {
    auto next = changed.begin();
    for (const RecordId id : of_a) {
      if (rest_a_.contains(id)) {
        result_.differences.push_back({Difference::Kind::removed,
                                       std::string(a_.kind_name(id)),
                                       space_,
                                       {},
                                       id,
                                       RecordId::none,
                                       {}});
      } else if (next != changed.end() && next->a == id) {
        result_.differences.push_back(std::move(*next++));
      }
    }
    for (const RecordId id : of_b) {
      if (!rest_b_.contains(id)) continue;
      result_.differences.push_back({Difference::Kind::added,
                                     std::string(b_.kind_name(id)),
                                     space_,
                                     {},
                                     RecordId::none,
                                     id,
                                     {}});
    }
  }

  const Drawing& a_;
  const Drawing& b_;
  double tolerance_;
  Comparison& result_;
  std::string space_;
  std::map<RecordId, Tags> rest_a_, rest_b_;
};

Tags row_content(const Drawing& drawing, const Layer& layer) {
  return layer.record == RecordId::none ? Tags() : content_of(drawing, layer.record);
}

void compare_layers(const Drawing& a, const Drawing& b, double tolerance, Comparison& result) {
  for (const Layer& layer : a.layers()) {
    const auto twin = b.find_layer(layer.name);
    Difference difference{
        Difference::Kind::removed, "LAYER", {}, layer.name, layer.record, RecordId::none, {}};
    if (twin) {
      const Layer& other = b.layer(*twin);
      difference.kind = Difference::Kind::changed;
      difference.b = other.record;
      difference.values =
          value_differences(row_content(a, layer), row_content(b, other), tolerance);
      if (difference.values.empty()) continue;
    }
    result.differences.push_back(std::move(difference));
  }
  for (const Layer& layer : b.layers()) {
    if (a.find_layer(layer.name)) continue;
    result.differences.push_back(
        {Difference::Kind::added, "LAYER", {}, layer.name, RecordId::none, layer.record, {}});
  }
}

}  // namespace

Comparison compare(const Drawing& a, const Drawing& b, double tolerance) {
  Comparison result;
  compare_layers(a, b, tolerance, result);
  SpaceComparison spaces(a, b, tolerance, result);
  for (const Space& space : a.spaces()) {
    spaces.compare(a.find_space(space.name), b.find_space(space.name), space.name);
  }
  for (const Space& space : b.spaces()) {
    if (!a.find_space(space.name)) spaces.compare({}, b.find_space(space.name), space.name);
  }
  return result;
}

}  // namespace velmar::drawing
