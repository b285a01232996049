#include "drawing/dxf/record_reader.h"

namespace velmar::drawing::dxf {

const Tag* RecordReader::first(int code) const {
  for (const Tag& tag : record_.tags()) {
    if (tag.code == code && !tag.in_group) return &tag;
  }
  return nullptr;
}

std::string RecordReader::first_text(int code) const {
  const Tag* tag = first(code);
  return tag ? value_as_text(record_.bytes(), *tag, record_.format()) : std::string();
}

std::int64_t RecordReader::first_integer(int code) const {
  const Tag* tag = first(code);
  return tag ? integer_value(record_.bytes(), *tag, record_.format()).value_or(0) : 0;
}

Point RecordReader::first_point(int code) const {
  const auto coordinate = [&](int of) {
    const Tag* tag = first(of);
    return tag ? real_value(record_.bytes(), *tag, record_.format()).value_or(0) : 0.0;
  };
  return {coordinate(code), coordinate(code + 10), coordinate(code + 20)};
}

std::string RecordReader::variable(std::string_view name) const {
  const auto& tags = record_.tags();
  for (std::size_t i = 0; i + 1 < tags.size(); ++i) {
    if (tags[i].code != 9 || record_.text(tags[i]) != name) continue;
    return value_as_text(record_.bytes(), tags[i + 1], record_.format());
  }
  return {};
}

HeaderVariables RecordReader::variables() const {
  HeaderVariables all;
  const auto& tags = record_.tags();
  for (std::size_t i = 0; i + 1 < tags.size(); ++i) {
    if (tags[i].code != 9) continue;
    all.emplace(record_.text(tags[i]),
                value_as_text(record_.bytes(), tags[i + 1], record_.format()));
  }
  return all;
}

std::optional<Point> RecordReader::point_variable(std::string_view name) const {
  const auto& tags = record_.tags();
  for (std::size_t i = 0; i + 2 < tags.size(); ++i) {
    if (tags[i].code != 9 || record_.text(tags[i]) != name) continue;
    const auto coordinate = [&](std::size_t at, int code) {
      return at < tags.size() && tags[at].code == code
                 ? real_value(record_.bytes(), tags[at], record_.format())
                 : std::nullopt;
    };
    const auto x = coordinate(i + 1, 10), y = coordinate(i + 2, 20), z = coordinate(i + 3, 30);
    if (!x || !y) return std::nullopt;
    return Point{*x, *y, z.value_or(0)};
  }
  return std::nullopt;
}

LayoutFields RecordReader::layout() const {
  TagRange range(record_);
  LayoutFields fields;
  if (!range.subclass("AcDbLayout")) return fields;
  if (const Tag* name = range.find(1))
    fields.name = text_value(record_.bytes(), *name, record_.format());
  if (const Tag* tab = range.find(71)) {
    fields.tab = static_cast<std::int32_t>(
        integer_value(record_.bytes(), *tab, record_.format()).value_or(0));
  }
  if (const Tag* block = range.find(330)) fields.block_record = record_.text(*block);
  return fields;
}

}  // namespace velmar::drawing::dxf
