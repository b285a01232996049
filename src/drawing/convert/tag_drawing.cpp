#include "drawing/convert/tag_drawing.h"

#include <algorithm>

#include "drawing/dxf/tag.h"
#include "drawing/name.h"

namespace velmar::drawing {

Tags* TagDrawing::variable(std::string_view name) {
  for (Tags& tags : header) {
    const auto* const text = std::get_if<std::string>(&tags.front().value);
    if (text != nullptr && *text == name) return &tags;
  }
  return nullptr;
}

void TagDrawing::set_variable(std::string_view name, TagValue value) {
  if (Tags* const known = variable(name)) {
    known->resize(1);
    known->push_back(std::move(value));
  } else {
    header.push_back({{9, std::string(name)}, std::move(value)});
  }
}

TagTable* TagDrawing::table(std::string_view name) {
  const auto found = std::ranges::find(tables, name, &TagTable::name);
  return found == tables.end() ? nullptr : &*found;
}

TagRecord* TagDrawing::row(std::string_view table_name, std::string_view name) {
  TagTable* const in = table(table_name);
  if (in == nullptr) return nullptr;
  const auto found = std::ranges::find_if(
      in->rows, [&](const TagRecord& row) { return same_name(name_of(row), name); });
  return found == in->rows.end() ? nullptr : &*found;
}

TagBlock* TagDrawing::block(std::string_view name) {
  const auto found = std::ranges::find_if(
      blocks, [&](const TagBlock& block) { return same_name(name_of(block.begin), name); });
  return found == blocks.end() ? nullptr : &*found;
}

void add_real(Tags& tags, int code, double value) { tags.push_back({code, value}); }

void add_integer(Tags& tags, int code, std::int64_t value) { tags.push_back({code, value}); }

void add_text(Tags& tags, int code, std::string_view value) {
  tags.push_back({code, std::string(value)});
}

void insert_tag(Tags& tags, std::size_t at, TagValue tag) {
  tags.push_back(std::move(tag));
  std::rotate(tags.begin() + static_cast<std::ptrdiff_t>(at), tags.end() - 1, tags.end());
}

std::size_t xdata_of(const Tags& tags) {
  const auto found =
      std::ranges::find_if(tags, [](const TagValue& tag) { return tag.code >= 1000; });
  return static_cast<std::size_t>(found - tags.begin());
}

const TagValue* find_tag(const Tags& tags, int code) {
  bool in_group = false;
  for (const TagValue& tag : tags) {
    if (tag.code >= 1000 && code < 1000) return nullptr;
    if (tag.code == 102) {
      const auto* const text = std::get_if<std::string>(&tag.value);
      in_group = text != nullptr && text->starts_with('{');
    } else if (tag.code == code && !in_group) {
      return &tag;
    }
  }
  return nullptr;
}

std::string text_of(const Tags& tags, int code) {
  const TagValue* const tag = find_tag(tags, code);
  const auto* const text = tag != nullptr ? std::get_if<std::string>(&tag->value) : nullptr;
  return text != nullptr ? *text : std::string();
}

std::int64_t integer_of(const Tags& tags, int code, std::int64_t otherwise) {
  const TagValue* const tag = find_tag(tags, code);
  const auto* const number = tag != nullptr ? std::get_if<std::int64_t>(&tag->value) : nullptr;
  return number != nullptr ? *number : otherwise;
}

double real_of(const Tags& tags, int code, double otherwise) {
  const TagValue* const tag = find_tag(tags, code);
  const auto* const number = tag != nullptr ? std::get_if<double>(&tag->value) : nullptr;
  return number != nullptr ? *number : otherwise;
}

Handle handle_of(const TagValue& tag) {
  const auto* const text = std::get_if<std::string>(&tag.value);
  return text != nullptr ? parse_handle(*text) : 0;
}

TagValue handle_tag(int code, Handle handle) { return {code, handle_text(handle)}; }

}  // namespace velmar::drawing
