#include "drawing/dimension/overrides.h"

#include <algorithm>

#include "drawing/dxf/tag.h"

namespace velmar::drawing {
namespace {

constexpr int style_application = 1001, override_text = 1000, brace = 1002, real = 1040,
              integer = 1070;

dxf::Tag whole(const std::string& value) {
  dxf::Tag tag;
  tag.value_end = static_cast<std::uint32_t>(value.size());
  return tag;
}

struct Span {
  std::size_t begin = 0, end = 0;
};

/// From behind the application's name to the next application's.
Span run_of_acad(const ExtendedData& data) {
  for (std::size_t i = 0; i < data.size(); ++i) {
    if (data[i].first != style_application || data[i].second != "ACAD") continue;
    std::size_t end = i + 1;
    while (end < data.size() && data[end].first != style_application) ++end;
    return {i + 1, end};
  }
  return {data.size(), data.size()};
}

/// What stands between the braces behind DSTYLE; empty where there are none.
Span between_braces(const ExtendedData& data, Span run) {
  for (std::size_t i = run.begin; i + 1 < run.end; ++i) {
    if (data[i] != std::pair(override_text, std::string("DSTYLE")) || data[i + 1].first != brace)
      continue;
    std::size_t end = i + 2;
    while (end < run.end && data[end].first != brace) ++end;
    return {i + 2, end};
  }
  return {};
}

class Reader {
 public:
  explicit Reader(const Overrides& overrides) : overrides_(overrides) {}

  void subclass(std::string_view) {}
  template <class Value, class Default>
  void operator()(std::string_view, int code, Value& value, const Default&) {
    const auto found = std::ranges::find(overrides_, code, &Override::variable);
    if (found != overrides_.end()) read(found->value, value);
  }

 private:
  static void read(const std::string& given, std::string& value) { value = given; }
  static void read(const std::string& given, double& value) {
    value = dxf::real_value(given, whole(given), {}).value_or(value);
  }
  static void read(const std::string& given, std::int32_t& value) {
    const auto number = dxf::integer_value(given, whole(given), {});
    if (number) value = static_cast<std::int32_t>(*number);
  }

  const Overrides& overrides_;
};

struct Lister {
  Overrides list;

  void subclass(std::string_view) {}
  template <class Default>
  void operator()(std::string_view, int code, const std::string& value, const Default&) {
    list.push_back({code, override_text, value});
  }
  template <class Default>
  void operator()(std::string_view, int code, double value, const Default&) {
    list.push_back({code, real, dxf::real_bytes(value, {})});
  }
  template <class Default>
  void operator()(std::string_view, int code, std::int32_t value, const Default&) {
    list.push_back({code, integer, std::to_string(value)});
  }
};

Overrides all(DimVariables variables) {
  Lister lister;
  fields(lister, variables);
  return lister.list;
}

}  // namespace

Overrides overrides_in(const ExtendedData& data) {
  const Span span = between_braces(data, run_of_acad(data));
  Overrides overrides;
  for (std::size_t i = span.begin; i + 1 < span.end; i += 2) {
    const std::string& code = data[i].second;
    const auto variable = dxf::integer_value(code, whole(code), {});
    if (data[i].first != integer || !variable) break;
    overrides.push_back({static_cast<int>(*variable), data[i + 1].first, data[i + 1].second});
  }
  return overrides;
}

ExtendedData with_overrides(const ExtendedData& data, const Overrides& overrides) {
  const Span run = run_of_acad(data), present = between_braces(data, run);
  const auto at = [&](std::size_t i) { return data.begin() + static_cast<std::ptrdiff_t>(i); };
  const bool is_there = present.begin != 0;
  ExtendedData result{{style_application, "ACAD"}};
  result.insert(result.end(), at(run.begin), at(is_there ? present.begin : run.end));
  if (!is_there) {
    result.emplace_back(override_text, "DSTYLE");
    result.emplace_back(brace, "{");
  }
  for (const Override& one : overrides) {
    result.emplace_back(integer, std::to_string(one.variable));
    result.emplace_back(one.code, one.value);
  }
  if (is_there) {
    result.insert(result.end(), at(present.end), at(run.end));
  } else {
    result.emplace_back(brace, "}");
  }
  return result;
}

void take_overrides(const Overrides& overrides, DimVariables& variables) {
  Reader reader(overrides);
  fields(reader, variables);
}

Overrides differences(const DimVariables& from, const DimVariables& to) {
  const Overrides before = all(from);
  Overrides after = all(to);
  std::size_t i = 0;
  std::erase_if(after, [&](const Override& one) { return one == before[i++]; });
  return after;
}

void set(Overrides& overrides, Override wanted) {
  const auto present = std::ranges::find(overrides, wanted.variable, &Override::variable);
  if (present == overrides.end()) {
    overrides.push_back(std::move(wanted));
  } else {
    *present = std::move(wanted);
  }
}

}  // namespace velmar::drawing
