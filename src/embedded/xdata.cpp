#include "embedded/xdata.h"

#include <array>
#include <charconv>
#include <cmath>

#include "basic/conversion.h"
#include "basic/strings.h"
#include "basic/val.h"
#include "embedded/errors.h"

namespace velmar::embedded {
namespace {

using basic::Value;
using Tags = std::vector<std::pair<int, std::string>>;

constexpr int application_code = 1001, first_point = 1010, last_point = 1013, axis_step = 10;

bool is_text(int code) { return code >= 1000 && code <= 1005; }
bool is_point(int code) { return code >= first_point && code <= last_point; }
bool is_real(int code) { return code >= 1040 && code <= 1042; }

double number(const std::string& text) { return basic::val(text, basic::TypeCharacter::ignored); }

/// The shortest text that reads back as the same number.
std::string number_text(double number) {
  if (!std::isfinite(number)) throw failure(HostError::invalid_input);
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
  return {text.data(), end};
}

/// The value of the tag at `i`; of a point, with the two tags behind it, which `i` then passes.
Value value_of(const Tags& tags, std::size_t& i) {
  const auto& [code, text] = tags[i];
  if (is_point(code)) {
    basic::Doubles point{number(text), 0, 0};
    for (int axis = 1; axis <= 2; ++axis) {
      if (i + 1 == tags.size() || tags[i + 1].first != code + axis * axis_step) break;
      point[static_cast<std::size_t>(axis)] = number(tags[++i].second);
    }
    return point;
  }
  if (is_real(code)) return number(text);
  if (code == 1070) return basic::to_int16(number(text));
  if (code == 1071) return basic::to_int32(number(text));
  return text;
}

std::string text_of(int code, const Value& value) {
  if (is_text(code)) return basic::convert<std::string>(value);
  if (is_real(code)) return number_text(basic::convert<double>(value));
  if (code == 1070) return std::to_string(basic::convert<std::int16_t>(value));
  if (code == 1071) return std::to_string(basic::convert<std::int32_t>(value));
  throw failure(HostError::invalid_input);
}

void append(Tags& tags, int code, const Value& value) {
  if (!is_point(code)) {
    tags.emplace_back(code, text_of(code, value));
    return;
  }
  const auto* point = value.if_is<basic::Doubles>();
  if (!point || point->size() != 3) throw failure(HostError::invalid_input);
  for (int axis = 0; axis < 3; ++axis) {
    tags.emplace_back(code + axis * axis_step,
                      number_text((*point)[static_cast<std::size_t>(axis)]));
  }
}

const basic::List& list(const Value& value, std::string_view parameter) {
  const auto* items = value.if_is<basic::List>();
  if (!items) throw invalid_argument(parameter, host::Member::SetXData);
  return *items;
}

}  // namespace

XData read_xdata(const drawing::Drawing& drawing, drawing::RecordId id,
                 std::string_view application) {
  const Tags tags = drawing.read_xdata(id);
  XData data;
  bool wanted = application.empty();
  for (std::size_t i = 0; i < tags.size(); ++i) {
    const int code = tags[i].first;
    if (code == application_code && !application.empty()) {
      wanted = basic::equal_ignoring_case(tags[i].second, application);
    }
    Value value = value_of(tags, i);
    if (!wanted) continue;
    data.types.emplace_back(static_cast<std::int16_t>(code));
    data.values.push_back(std::move(value));
  }
  return data;
}

void write_xdata(drawing::Drawing& drawing, drawing::RecordId id, const Value& types,
                 const Value& values) {
  const basic::List& codes = list(types, "XDataType");
  const basic::List& contents = list(values, "XDataValue");
  if (codes.size() != contents.size()) throw failure(HostError::invalid_input);
  Tags tags;
  for (std::size_t i = 0; i < codes.size(); ++i) {
    append(tags, basic::convert<std::int16_t>(codes[i]), contents[i]);
  }
  if (tags.empty() || tags.front().first != application_code) {
    throw failure(HostError::invalid_input);
  }
  drawing.write_xdata(id, tags);
}

}  // namespace velmar::embedded
