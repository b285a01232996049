#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "basic/value.h"
#include "host/view.h"

/// One view per entity kind, with the host's own member names: `Layer()` reads, `Layer("A")`
/// writes. Lengths are drawing units, angles radians, points world coordinates unless a comment
/// says otherwise.
namespace velmar::host {

/// An entity of any kind.
struct Entity : View {
  using View::View;

  /// Upper-case hexadecimal.
  std::string Handle() const { return get<std::string>(Member::Handle); }
  std::string ObjectName() const { return get<std::string>(Member::ObjectName); }
  /// Whether that is its `ObjectName`, letter for letter.
  bool has_class(std::string_view class_name) const {
    return with_text(Member::ObjectName, [&](std::string_view name) { return name == class_name; });
  }

  std::string Layer() const { return get<std::string>(Member::Layer); }
  /// Whether that is its `Layer`, letter for letter.
  bool is_on(std::string_view layer) const {
    return with_text(Member::Layer, [&](std::string_view name) { return name == layer; });
  }
  void Layer(std::string_view name) const { put(Member::Layer, name); }
  /// A colour index: 1 to 255, 0 by block, 256 by layer.
  std::int32_t Color() const { return get<std::int32_t>(Member::Color); }
  void Color(std::int32_t index) const { put(Member::Color, index); }
  std::string Linetype() const { return get<std::string>(Member::Linetype); }
  void Linetype(std::string_view name) const { put(Member::Linetype, name); }
  double LinetypeScale() const { return get<double>(Member::LinetypeScale); }
  void LinetypeScale(double scale) const { put(Member::LinetypeScale, scale); }
  bool Visible() const { return get<bool>(Member::Visible); }
  void Visible(bool visible) const { put(Member::Visible, visible); }

  void Update() const { call(Member::Update); }
  void Delete() const { call(Member::Delete); }
  void Move(const Point& from, const Point& to) const { call(Member::Move, from, to); }
  /// Relative: the angle is added to the present one.
  void Rotate(const Point& base, double radians) const { call(Member::Rotate, base, radians); }
  void ScaleEntity(const Point& base, double factor) const {
    call(Member::ScaleEntity, base, factor);
  }
  void GetBoundingBox(Value& min_point, Value& max_point) const {
    call(Member::GetBoundingBox, min_point, max_point);
  }
  Box GetBoundingBox() const {
    Value min_point, max_point;
    GetBoundingBox(min_point, max_point);
    return {to_point(min_point), to_point(max_point)};
  }
};

struct Line : Entity {
  static constexpr std::string_view class_name = "AcDbLine";
  using Entity::Entity;

  Point StartPoint() const { return get<Point>(Member::StartPoint); }
  void StartPoint(const Point& point) const { put(Member::StartPoint, point); }
  Point EndPoint() const { return get<Point>(Member::EndPoint); }
  void EndPoint(const Point& point) const { put(Member::EndPoint, point); }
  double Length() const { return get<double>(Member::Length); }
  double Angle() const { return get<double>(Member::Angle); }
};

struct Circle : Entity {
  static constexpr std::string_view class_name = "AcDbCircle";
  using Entity::Entity;

  Point Center() const { return get<Point>(Member::Center); }
  double Radius() const { return get<double>(Member::Radius); }
  double Area() const { return get<double>(Member::Area); }
};

struct Arc : Entity {
  static constexpr std::string_view class_name = "AcDbArc";
  using Entity::Entity;

  Point Center() const { return get<Point>(Member::Center); }
  double Radius() const { return get<double>(Member::Radius); }
  double StartAngle() const { return get<double>(Member::StartAngle); }
  double EndAngle() const { return get<double>(Member::EndAngle); }
  /// Along the curve, not the chord.
  double ArcLength() const { return get<double>(Member::ArcLength); }
};

struct Ellipse : Entity {
  static constexpr std::string_view class_name = "AcDbEllipse";
  using Entity::Entity;

  Point Center() const { return get<Point>(Member::Center); }
  double Area() const { return get<double>(Member::Area); }
};

/// The usual polyline. Its vertices are x, y pairs in the entity's own plane.
struct LightweightPolyline : Entity {
  static constexpr std::string_view class_name = "AcDbPolyline";
  using Entity::Entity;

  basic::Doubles Coordinates() const { return get<basic::Doubles>(Member::Coordinates); }
  void Coordinates(const basic::Doubles& pairs) const { put(Member::Coordinates, pairs); }
  bool Closed() const { return get<bool>(Member::Closed); }
  void Closed(bool closed) const { put(Member::Closed, closed); }
  double Elevation() const { return get<double>(Member::Elevation); }
  void Elevation(double z) const { put(Member::Elevation, z); }
  /// Never negative; an open one is measured as if closed by a straight segment.
  double Area() const { return get<double>(Member::Area); }
};

/// The old two-dimensional polyline. Its vertices are x, y, z triples; a written z is ignored.
struct HeavyPolyline : Entity {
  static constexpr std::string_view class_name = "AcDb2dPolyline";
  using Entity::Entity;

  basic::Doubles Coordinates() const { return get<basic::Doubles>(Member::Coordinates); }
  void Coordinates(const basic::Doubles& triples) const { put(Member::Coordinates, triples); }
  bool Closed() const { return get<bool>(Member::Closed); }
  void Closed(bool closed) const { put(Member::Closed, closed); }
  double Elevation() const { return get<double>(Member::Elevation); }
  void Elevation(double z) const { put(Member::Elevation, z); }
  double Area() const { return get<double>(Member::Area); }
};

struct Polyline3D : Entity {
  static constexpr std::string_view class_name = "AcDb3dPolyline";
  using Entity::Entity;

  basic::Doubles Coordinates() const { return get<basic::Doubles>(Member::Coordinates); }
  void Coordinates(const basic::Doubles& triples) const { put(Member::Coordinates, triples); }
  bool Closed() const { return get<bool>(Member::Closed); }
  void Closed(bool closed) const { put(Member::Closed, closed); }
};

/// A single-line text.
struct Text : Entity {
  static constexpr std::string_view class_name = "AcDbText";
  using Entity::Entity;

  std::string TextString() const { return get<std::string>(Member::TextString); }
  void TextString(std::string_view text) const { put(Member::TextString, text); }
  Point InsertionPoint() const { return get<Point>(Member::InsertionPoint); }
  void InsertionPoint(const Point& point) const { put(Member::InsertionPoint, point); }
  double Height() const { return get<double>(Member::Height); }
  double Rotation() const { return get<double>(Member::Rotation); }
  void Rotation(double radians) const { put(Member::Rotation, radians); }
  /// The relative width of the characters.
  double ScaleFactor() const { return get<double>(Member::ScaleFactor); }
  void ScaleFactor(double factor) const { put(Member::ScaleFactor, factor); }
  std::string StyleName() const { return get<std::string>(Member::StyleName); }
  void StyleName(std::string_view name) const { put(Member::StyleName, name); }
};

struct MText : Entity {
  static constexpr std::string_view class_name = "AcDbMText";
  using Entity::Entity;

  /// With its formatting codes.
  std::string TextString() const { return get<std::string>(Member::TextString); }
  void TextString(std::string_view text) const { put(Member::TextString, text); }
};

/// A value that one insertion of a block carries. It is not listed in model space.
struct Attribute : Entity {
  static constexpr std::string_view class_name = "AcDbAttribute";
  using Entity::Entity;

  std::string TagString() const { return get<std::string>(Member::TagString); }
  std::string TextString() const { return get<std::string>(Member::TextString); }
  void TextString(std::string_view text) const { put(Member::TextString, text); }
};

/// An insertion of a block, also of an external reference.
struct BlockReference : Entity {
  static constexpr std::string_view class_name = "AcDbBlockReference";
  using Entity::Entity;

  std::string Name() const { return get<std::string>(Member::Name); }
  std::vector<Attribute> GetAttributes() const {
    return from_list<Attribute>(call(Member::GetAttributes));
  }
  Point InsertionPoint() const { return get<Point>(Member::InsertionPoint); }
  /// Adds the contents to the same space; the reference stays.
  void Explode() const { call(Member::Explode); }
};

struct Hatch : Entity {
  static constexpr std::string_view class_name = "AcDbHatch";
  using Entity::Entity;

  /// The distance of the lines of a user-defined pattern.
  void PatternSpace(double distance) const { put(Member::PatternSpace, distance); }
  void Elevation(double z) const { put(Member::Elevation, z); }
  /// The entity alone must be a closed loop.
  void AppendOuterLoop(const Entity& boundary) const {
    call(Member::AppendOuterLoop, basic::List{to_value(boundary)});
  }
  /// Computes the lines; without it a hatch draws nothing.
  void Evaluate() const { call(Member::Evaluate); }
};

/// What moves when a dimension's text is moved.
enum class DimensionTextMovement : std::int32_t { line_moves_with_text = 0 };
/// What goes outside first where there is too little room.
enum class DimensionFit : std::int32_t { best = 3 };

/// A dimension of any kind. No entity reports this class itself.
struct Dimension : Entity {
  static constexpr std::string_view class_name = "AcDbDimension";
  using Entity::Entity;

  std::string StyleName() const { return get<std::string>(Member::StyleName); }
  void StyleName(std::string_view name) const { put(Member::StyleName, name); }
  Point TextPosition() const { return get<Point>(Member::TextPosition); }
  void TextPosition(const Point& point) const { put(Member::TextPosition, point); }
  void TextMovement(DimensionTextMovement movement) const {
    put(Member::TextMovement, static_cast<std::int32_t>(movement));
  }
  void TextInside(bool inside) const { put(Member::TextInside, inside); }
  void ForceLineInside(bool inside) const { put(Member::ForceLineInside, inside); }
  void Fit(DimensionFit fit) const { put(Member::Fit, static_cast<std::int32_t>(fit)); }
};

struct AlignedDimension : Dimension {
  static constexpr std::string_view class_name = "AcDbAlignedDimension";
  using Dimension::Dimension;

  Point ExtLine1Point() const { return get<Point>(Member::ExtLine1Point); }
  Point ExtLine2Point() const { return get<Point>(Member::ExtLine2Point); }
};

struct RotatedDimension : Dimension {
  static constexpr std::string_view class_name = "AcDbRotatedDimension";
  using Dimension::Dimension;

  /// Of the dimension line.
  double Rotation() const { return get<double>(Member::Rotation); }
};

struct Ole : Entity {
  static constexpr std::string_view class_name = "AcDbOle2Frame";
  using Entity::Entity;
};

struct Region : Entity {
  static constexpr std::string_view class_name = "AcDbRegion";
  using Entity::Entity;
};

struct Tolerance : Entity {
  static constexpr std::string_view class_name = "AcDbFcf";
  using Entity::Entity;

  Point InsertionPoint() const { return get<Point>(Member::InsertionPoint); }
  void InsertionPoint(const Point& point) const { put(Member::InsertionPoint, point); }
};

}  // namespace velmar::host
