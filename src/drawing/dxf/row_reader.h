#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "drawing/dxf/problem.h"
#include "drawing/dxf/record_tags.h"
#include "drawing/entities/field.h"

namespace velmar::drawing::dxf {

/// Takes the tags of a row one after the other, as its elements' tag lists name them. Stops at the
/// first that does not fit: problem() tells.
class RowReader {
 public:
  RowReader(const RecordTags& record, std::size_t first, std::size_t last)
      : record_(record), at_(first), last_(last) {}

  template <class T>
  void operator()(int code, T&& value) {
    if (const Tag* tag = take(code)) read(*tag, value);
  }
  template <class T, class Default>
  void operator()(int code, T&& value, const unless<Default>& missing, bool = false) {
    if (const Tag* tag = next(); tag && tag->code == code) {
      (*this)(code, value);
    } else {
      value = missing.value;
    }
  }
  void plane(int code, Point& point) {
    (*this)(code, point.x);
    (*this)(code + 10, point.y);
  }
  void plane(int code, Point& point, const unless<Point>& missing) {
    const Tag* tag = next();
    point = missing.value;
    if (tag && tag->code == code) plane(code, point);
  }
  template <class T>
  void count(int code, std::vector<T>& list) {
    list.assign(counted(code), T{});
  }
  template <class T>
  void count(int code, std::vector<T>& list, MayBeMissing) {
    const Tag* tag = next();
    list.clear();
    if (tag && tag->code == code) count(code, list);
  }
  template <class T>
  void list(int code, std::vector<T>& list) {
    list.clear();
    for (std::size_t left = counted(code); left > 0 && !problem_; --left) {
      tags(*this, list.emplace_back());
    }
  }
  template <class... T>
  void alternative(int code, std::variant<T...>& value) {
    std::int32_t number = 0;
    (*this)(code, number);
    choose<0>(number - 1, value);
    if (!problem_) std::visit([&](auto& chosen) { tags(*this, chosen); }, value);
  }
  bool present(bool& is_there, int code, std::initializer_list<int> after);

  const std::optional<Problem>& problem() const { return problem_; }
  /// Behind the last tag that was taken.
  std::size_t at() const { return at_; }

 private:
  const Tag* next() const { return at_ < last_ && !problem_ ? &record_.tags()[at_] : nullptr; }
  const Tag* take(int code);
  void read(const Tag& tag, double& value);
  void read(const Tag& tag, std::int32_t& value);
  void read(const Tag& tag, std::string& value);
  void read(const Tag& tag, Degrees& value);
  /// How many elements follow, no more than there are tags left.
  std::size_t counted(int code);
  template <std::size_t i, class... T>
  void choose(std::int32_t wanted, std::variant<T...>& value) {
    if constexpr (i < sizeof...(T)) {
      if (wanted != static_cast<std::int32_t>(i)) return choose<i + 1>(wanted, value);
      value.template emplace<i>();
    } else {
      stop("a number from 1 to " + std::to_string(sizeof...(T)));
    }
  }
  void stop(const std::string& expected);

  const RecordTags& record_;
  std::size_t at_, last_;
  std::optional<Problem> problem_;
};

}  // namespace velmar::drawing::dxf
