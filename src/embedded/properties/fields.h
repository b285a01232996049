#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/entity.h"
#include "drawing/geometry/ocs.h"
#include "embedded/arguments.h"
#include "embedded/properties/checks.h"

namespace velmar::embedded {

/// The words of a field list that mean nothing to a property.
struct FieldVisitor {
  void subclass(std::string_view) {}
  void any_subclass() {}
  bool embedded_object() { return false; }
  template <class List>
  void count(int, List&) {}
  template <class List>
  void vertices(List&) {}
  template <class List>
  void repeated(int, List&) {}
  template <class List>
  void row(int, List&) {}
  void absent(std::initializer_list<int>) {}
  template <class List>
  void long_texts(int, int, List&) {}
  void first_chunk(int, const std::string&) {}
};

/// Reads the field of that name: points in world coordinates, angles in radians.
class FieldGet : public FieldVisitor {
 public:
  FieldGet(Member member, drawing::Point normal) : name_(host::spelling(member)), normal_(normal) {}

  template <class Field, class... Unless>
  void operator()(std::string_view name, int, const Field& field, const Unless&...) {
    if (name == name_) found = value_of(field);
  }

  std::optional<Value> found;

 private:
  Value value_of(double number) const { return number; }
  Value value_of(std::int32_t number) const { return number; }
  Value value_of(const std::string& text) const { return text; }
  Value value_of(drawing::Point point) const { return to_value(point); }
  Value value_of(const drawing::Degrees& angle) const { return angle.radians; }
  Value value_of(const drawing::Chunked& text) const { return text.text; }
  Value value_of(const drawing::Ocs& ocs) const {
    return to_value(drawing::ocs_to_world(normal_)(ocs.point));
  }

  std::string_view name_;
  drawing::Point normal_;
};

/// Writes the field of that name; refuses what checks.h refuses.
class FieldPut : public FieldVisitor {
 public:
  FieldPut(const drawing::Drawing& drawing, Member member, drawing::Point normal,
           const Value& value)
      : drawing_(drawing),
        member_(member),
        name_(host::spelling(member)),
        normal_(normal),
        value_(value) {}

  template <class Field, class... Unless>
  void operator()(std::string_view name, int, Field&& field, const Unless&...) {
    if (name != name_) return;
    set(field);
    done = true;
  }

  bool done = false;

 private:
  void set(double& number) { number = checked_number(member_, value_); }
  void set(std::int32_t& number) { number = checked_integer(member_, value_); }
  void set(std::string& text) { text = checked_text(drawing_, member_, value_); }
  void set(drawing::Point& point) { point = to_point(value_, name_, member_); }
  void set(drawing::Degrees& angle) { angle.radians = checked_number(member_, value_); }
  void set(drawing::Chunked& text) { set(text.text); }
  void set(drawing::Ocs& ocs) {
    ocs.point = drawing::world_to_ocs(normal_)(to_point(value_, name_, member_));
  }

  const drawing::Drawing& drawing_;
  Member member_;
  std::string_view name_;
  drawing::Point normal_;
  const Value& value_;
};

/// Maps every point that is kept in the object coordinate system.
class MapOcsPoints : public FieldVisitor {
 public:
  explicit MapOcsPoints(const drawing::Matrix& map) : map_(map) {}

  void operator()(std::string_view, int, drawing::Ocs ocs) { ocs.point = map_(ocs.point); }
  template <class Unless>
  void operator()(std::string_view, int, drawing::Ocs ocs, const Unless&) {
    ocs.point = map_(ocs.point);
  }
  template <class Field, class... Unless>
  requires(!std::same_as<std::remove_cvref_t<Field>, drawing::Ocs>) void operator()(
      std::string_view, int, Field&&, const Unless&...) {}

 private:
  drawing::Matrix map_;
};

}  // namespace velmar::embedded
