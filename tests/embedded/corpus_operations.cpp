#include "embedded/corpus_operations.h"

#include <cmath>
#include <numbers>
#include <set>
#include <sstream>

#include "drawing/geometry/matrix.h"

namespace velmar::embedded {
namespace {

using drawing::Box;
using drawing::Matrix;
using Kinds = std::set<std::string>;

std::optional<Value> value_of(host::Object& object, Member member) {
  try {
    return object.get(member);
  } catch (const basic::Failure&) {
    return std::nullopt;
  }
}

std::optional<double> number_of(host::Object& object, Member member) {
  const auto value = value_of(object, member);
  return value ? std::optional(basic::convert<double>(*value)) : std::nullopt;
}

std::optional<Box> box_of(host::Object& object) {
  std::vector<Value> corners(2);
  if (failure_of([&] { object.call(Member::GetBoundingBox, corners); }) != 0) return std::nullopt;
  Box box;
  for (const Value& corner : corners) {
    const auto& numbers = *corner.if_is<basic::Doubles>();
    box.add(Point{numbers.at(0), numbers.at(1), numbers.at(2)});
  }
  return box;
}

bool is_near(double a, double b, double size) { return std::abs(a - b) <= 1e-7 * (1 + size); }

std::string text(const Box& box) {
  std::ostringstream out;
  out << box.min.x << "," << box.min.y << "," << box.min.z << " " << box.max.x << "," << box.max.y
      << "," << box.max.z;
  return out.str();
}

void expect_mapped(const Done& done, host::Object& after, const Matrix& map, const Kinds& redrawn) {
  const Look now = look_of(after);
  const auto& before = done.before;
  const bool is_redrawn = redrawn.contains(text_of(after, Member::ObjectName));
  EXPECT_TRUE(is_redrawn || now.box.has_value() == before.box.has_value());
  if (now.box && before.box && !is_redrawn) {
    Box image;
    image.add(map(before.box->min));
    image.add(map(before.box->max));
    const double away = norm(now.box->min - image.min) + norm(now.box->max - image.max);
    EXPECT_TRUE(is_near(away, 0, norm(image.min) + norm(image.max)))
        << text(*now.box) << " in place of " << text(image);
  }
  const auto expect_grown = [](std::optional<double> was, std::optional<double> is, double by) {
    EXPECT_EQ(was.has_value(), is.has_value());
    const bool is_right = !was || !is || is_near(*is, *was * by, *was * by);
    EXPECT_TRUE(is_right) << *was << " became " << *is;
  };
  const double factor = norm(map.x);
  expect_grown(before.area, now.area, factor * factor);
  expect_grown(before.length, now.length, factor);
}

/// Numbers; of a model its text, of other programs' data, the block of a dimension.
bool is_place(const drawing::TagValue& tag) {
  const std::set<int> others{1, 2, 3, 70, 310, 1000, 1001, 1002, 1070};
  return std::holds_alternative<double>(tag.value) || others.contains(tag.code);
}

/// A method that maps the entity. Boxes of `redrawn` kinds are left alone.
template <class... Arguments>
Operation mapping(Member member, Matrix map, Kinds redrawn, Arguments... arguments) {
  return {std::string(host::spelling(member)),
          [=](host::Object& object, Done&) { EntityScene::call_on(object, member, arguments...); },
          [=](const Done& done, host::Object& saved) { expect_mapped(done, saved, map, redrawn); },
          is_place};
}

/// One that gives a new entity.
template <class... Arguments>
Operation copying(Member member, Matrix map, Kinds redrawn, Arguments... arguments) {
  Operation operation = mapping(member, map, std::move(redrawn), arguments...);
  operation.may_differ = [](const auto&) { return true; };  // its handle, at least
  operation.apply = [=](host::Object& object, Done& done) {
    done.object = EntityScene::as_object(EntityScene::call_on(object, member, arguments...));
  };
  return operation;
}

/// Only tags of these group codes may differ; any where there are none.
auto only(const std::set<int>& codes) {
  return [=](const drawing::TagValue& tag) { return codes.empty() || codes.contains(tag.code); };
}

/// `change` gives the value to put from the one that is there.
Operation putting(Member member, std::function<Value(const Value&)> change,
                  const std::set<int>& codes = {}) {
  return {"put of " + std::string(host::spelling(member)),
          [=](host::Object& object, Done& done) {
            done.wanted = change(object.get(member));
            object.put(member, done.wanted);
          },
          [=](const Done& done, host::Object& saved) {
            expect_value(saved.get(member), done.wanted, "read again");
          },
          only(codes)};
}

Operation putting(Member member, const Value& value, const std::set<int>& codes = {}) {
  const auto given = [=](const Value&) { return value; };
  return putting(member, given, codes);
}

Value shifted(const Value& value) {
  basic::Doubles numbers = *value.if_is<basic::Doubles>();
  numbers.at(0) += 1.5;
  numbers.at(1) -= 2.25;
  return numbers;
}

Value enlarged(const Value& value) { return basic::convert<double>(value) * 1.25; }
Value increased(const Value& value) { return basic::convert<double>(value) + 0.375; }

/// That of a text which is not aligned to the left follows from its alignment point.
Operation putting_insertion_point() {
  Operation operation = putting(Member::InsertionPoint, shifted);
  const auto put = operation.apply;
  operation.apply = [=](host::Object& object, Done& done) {
    const auto alignment = number_of(object, Member::Alignment);
    if (alignment && *alignment != 0) throw basic::Failure(basic::no_such_member);
    put(object, done);
  };
  return operation;
}

/// The whole stays as it was.
Operation exploding() {
  return {"Explode",
          [](host::Object& object, Done&) { EntityScene::call_on(object, Member::Explode); },
          [](const Done& done, host::Object& saved) { expect_mapped(done, saved, {}, {}); }};
}

Operation deleting() {
  return {"Delete",
          [](host::Object& object, Done&) { EntityScene::call_on(object, Member::Delete); },
          [](const Done&, host::Object&) { ADD_FAILURE() << "is still there"; }};
}

}  // namespace

Look look_of(host::Object& object) {
  return {box_of(object), number_of(object, Member::Area), number_of(object, Member::Length)};
}

std::vector<Operation> operations() {
  const Point base{3, 4, 0};
  // Drawn anew with upright texts, or with texts of another size.
  const Kinds dimensions{"AcDbAlignedDimension",      "AcDbRotatedDimension",
                         "AcDb2LineAngularDimension", "AcDb3PointAngularDimension",
                         "AcDbRadialDimension",       "AcDbDiametricDimension",
                         "AcDbOrdinateDimension"};
  Kinds upright = dimensions;  // lines of different lengths stay readable
  upright.insert("AcDbMText");
  return {
      mapping(Member::Move, drawing::translation({12.5, -7.25, 2}), {}, at(0, 0),
              at(12.5, -7.25, 2)),
      putting(Member::Color, 3, {62, 420, 430}),
      mapping(Member::Rotate, drawing::rotation(base, drawing::z_axis, std::numbers::pi / 2),
              dimensions, at(3, 4), std::numbers::pi / 2),
      putting(Member::TextString, "Door 7"),
      putting(Member::Layer, "0", {8}),
      mapping(Member::ScaleEntity, drawing::scaling(base, 2), dimensions, at(3, 4), 2.0),
      putting(Member::Coordinates, shifted),
      putting(Member::Height, enlarged),
      copying(Member::Copy, Matrix{}, {}),
      putting(Member::Elevation, increased),
      putting(Member::TextPosition, shifted),
      putting(Member::Linetype, "Continuous", {6}),
      putting_insertion_point(),
      putting(Member::StartPoint, shifted),
      copying(Member::Mirror, drawing::reflection({1, 0, 0}, drawing::x_axis), upright, at(1, 0),
              at(1, 5)),
      putting(Member::Radius, enlarged),
      putting(Member::Center, shifted),
      putting(Member::LinetypeScale, 2.5, {48}),
      putting(Member::TextOverride, "<> typ."),
      putting(Member::Rotation, increased),
      putting(Member::Visible, false, {60}),
      exploding(),
      deleting(),
  };
}

}  // namespace velmar::embedded
