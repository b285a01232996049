#include "drawing/entities/acis_placement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace velmar::drawing {
namespace {

using Lines = std::vector<std::string>;
using Tokens = std::vector<std::string>;

/// Rows of a matrix for row vectors, the shift, the scale.
constexpr std::size_t number_count = 13;
using Numbers = std::array<double, number_count>;

constexpr std::string_view end_marker = "End-of-ACIS-data";

/// A model in the parts that its placement changes.
struct Model {
  Lines lines;  // revealed
  std::vector<AcisRecord> records;
  std::size_t body = 0, transform = 0;  // lines; 0: none
  int transform_number = -1;            // of the record that the body names
};

Tokens tokens_of(std::string_view line) {
  Tokens tokens;
  for (std::size_t at = line.find_first_not_of(' '); at != line.npos;
       at = line.find_first_not_of(' ', at)) {
    const std::size_t end = std::min(line.find(' ', at), line.size());
    tokens.emplace_back(line.substr(at, end - at));
    at = end;
  }
  return tokens;
}

std::string joined(const Tokens& tokens) {
  std::string line;
  for (const std::string& token : tokens) line += (line.empty() ? "" : " ") + token;
  return line;
}

/// The one line that holds the one record of that kind, 0 where it is not so simple.
std::size_t line_of(const Lines& lines, std::string_view kind) {
  std::size_t found = 0;
  for (std::size_t i = acis_header_lines; i < lines.size(); ++i) {
    const Tokens tokens = tokens_of(lines[i]);
    if (tokens.empty() || tokens.front() != kind) continue;
    const bool is_whole = std::ranges::count(tokens, "#") == 1 && tokens.back() == "#";
    if (found != 0 || !is_whole) return 0;
    found = i;
  }
  return found;
}

std::optional<Model> model_of(const Lines& disguised) {
  auto records = acis_records(disguised);
  if (!records || !placement(*records)) return std::nullopt;
  Model model{{}, std::move(*records)};
  for (const std::string& line : disguised) model.lines.push_back(mirrored(line));
  model.body = line_of(model.lines, "body");
  if (model.body == 0) return std::nullopt;
  const auto body = std::ranges::find(model.records, "body", &AcisRecord::kind);
  model.transform_number = body->references.empty() ? -1 : body->references.back();
  if (model.transform_number >= 0) {
    model.transform = line_of(model.lines, "transform");
    if (model.transform == 0) return std::nullopt;
  }
  return model;
}

Numbers numbers_of(const Model& model) {
  Numbers numbers{1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1};
  if (model.transform_number < 0) return numbers;
  const auto& record = model.records[static_cast<std::size_t>(model.transform_number)];
  std::ranges::copy_n(record.numbers.begin(), number_count, numbers.begin());
  return numbers;
}

/// The factor of a map that keeps all shapes alike, without the noise of a rotation.
double factor_of(const Matrix& map) {
  constexpr double noise = 1e-12;
  const double factor = norm(map.x);
  return std::abs(factor - 1) < noise ? 1 : factor;
}

bool keeps_shapes(const Matrix& map) {
  constexpr double tolerance = 1e-9;
  const double size = norm(map.x);
  const auto same = [&](double length) { return std::abs(length - size) <= tolerance * size; };
  const auto square = [&](Point a, Point b) {
    return std::abs(dot(a, b)) <= tolerance * size * size;
  };
  return size > 0 && same(norm(map.y)) && same(norm(map.z)) && square(map.x, map.y) &&
         square(map.x, map.z) && square(map.y, map.z);
}

Numbers mapped(const Numbers& n, const Matrix& map) {
  const double factor = factor_of(map);
  Numbers result = n;
  for (std::size_t row = 0; row < 3; ++row) {
    const Point image = map.direction({n[3 * row], n[3 * row + 1], n[3 * row + 2]});
    const std::array<double, 3> values{image.x / factor, image.y / factor, image.z / factor};
    std::ranges::copy(values, result.begin() + static_cast<std::ptrdiff_t>(3 * row));
  }
  const Point shift = map({n[9], n[10], n[11]});
  result[9] = shift.x;
  result[10] = shift.y;
  result[11] = shift.z;
  result[12] = n[12] * factor;
  return result;
}

std::string number_text(double number) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number == 0 ? 0 : number);
  return {text.data(), end.ptr};
}

double number_in(const std::string& token) {
  double number = 0;
  std::from_chars(token.data(), token.data() + token.size(), number);
  return number;
}

Tokens words_of(const Numbers& n) {
  const Matrix turn{{n[0], n[1], n[2]}, {n[3], n[4], n[5]}, {n[6], n[7], n[8]}};
  const bool turns = turn.x != x_axis || turn.y != y_axis || turn.z != z_axis;
  return {turns ? "rotate" : "no_rotate", determinant(turn) < 0 ? "reflect" : "no_reflect",
          "no_shear", "#"};
}

/// Numbers that stay the same keep their digits.
bool rewrite(std::string& line, const Numbers& numbers) {
  Tokens tokens = tokens_of(line);
  const Tokens words = words_of(numbers);
  if (tokens.size() < number_count + words.size()) return false;
  const std::size_t first = tokens.size() - words.size() - number_count;
  const bool is_known = tokens[first - 1].starts_with('$') &&
                        tokens[tokens.size() - 2].ends_with("shear") &&
                        tokens[tokens.size() - 3].ends_with("reflect");
  if (!is_known) return false;
  for (std::size_t i = 0; i < number_count; ++i) {
    std::string& token = tokens[first + i];
    if (number_in(token) != numbers[i]) token = number_text(numbers[i]);
  }
  std::ranges::copy(words, tokens.end() - static_cast<std::ptrdiff_t>(words.size()));
  line = joined(tokens) + " ";
  return true;
}

/// What stands between the kind of a record and its numbers, without what it refers to.
std::optional<Tokens> references_before_numbers(const Lines& lines) {
  for (const std::string& line : lines) {
    Tokens tokens = tokens_of(line);
    constexpr std::size_t coordinates_and_end = 4;
    if (tokens.empty() || tokens.front() != "point" || tokens.size() <= coordinates_and_end) {
      continue;
    }
    tokens.resize(tokens.size() - coordinates_and_end);
    tokens.erase(tokens.begin());
    if (tokens.empty() || !tokens.back().starts_with('$')) return std::nullopt;
    for (std::string& token : tokens) token = token.starts_with('$') ? "$-1" : token;
    return tokens;
  }
  return std::nullopt;
}

/// The header counts the records, or says 0.
bool count_one_more(std::string& header, std::size_t records) {
  Tokens tokens = tokens_of(header);
  if (tokens.size() < 2) return false;
  if (tokens[1] == "0") return true;
  if (tokens[1] != std::to_string(records)) return false;
  tokens[1] = std::to_string(records + 1);
  header = joined(tokens) + " ";
  return true;
}

bool add(Model& model, const Numbers& numbers) {
  const auto before = references_before_numbers(model.lines);
  std::size_t count = model.records.size();
  if (model.records.back().kind == end_marker) --count;
  if (!before || !count_one_more(model.lines.front(), count)) return false;
  Tokens body = tokens_of(model.lines[model.body]);
  if (body.size() < 2 || body[body.size() - 2] != "$-1") return false;
  body[body.size() - 2] = "$" + std::to_string(count);
  model.lines[model.body] = joined(body) + " ";
  Tokens record{"transform"};
  record.insert(record.end(), before->begin(), before->end());
  for (const double number : numbers) record.push_back(number_text(number));
  for (const std::string& word : words_of(numbers)) record.push_back(word);
  const auto end = std::ranges::find_if(
      model.lines, [](const std::string& line) { return line.starts_with(end_marker); });
  model.lines.insert(end, joined(record) + " ");
  return true;
}

}  // namespace

std::optional<Matrix> placement(const std::vector<AcisRecord>& records) {
  const auto body = std::ranges::find(records, "body", &AcisRecord::kind);
  if (body == records.end() || body->references.empty()) return std::nullopt;
  const int number = body->references.back();
  if (number < 0) return Matrix{};
  if (static_cast<std::size_t>(number) >= records.size()) return std::nullopt;
  const AcisRecord& transform = records[static_cast<std::size_t>(number)];
  if (transform.kind != "transform" || transform.numbers.size() < number_count) return std::nullopt;
  const auto& n = transform.numbers;
  const double scale = n[12];
  return Matrix{Point{n[0], n[1], n[2]} * scale,
                Point{n[3], n[4], n[5]} * scale,
                Point{n[6], n[7], n[8]} * scale,
                {n[9], n[10], n[11]}};
}

std::optional<Lines> placed(const Lines& disguised, const Matrix& map) {
  auto model = model_of(disguised);
  if (!model || !keeps_shapes(map)) return std::nullopt;
  const Numbers numbers = mapped(numbers_of(*model), map);
  const bool done = model->transform_number < 0 ? add(*model, numbers)
                                                : rewrite(model->lines[model->transform], numbers);
  if (!done) return std::nullopt;
  Lines result;
  for (std::size_t i = 0; i < model->lines.size(); ++i) {
    const bool is_same = i < disguised.size() && mirrored(disguised[i]) == model->lines[i];
    result.push_back(is_same ? disguised[i] : mirrored(model->lines[i]));
  }
  return result;
}

}  // namespace velmar::drawing
