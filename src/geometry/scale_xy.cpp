#include <cstddef>
#include <cstdint>
#include <string>

#include "basic/arithmetic.h"
#include "basic/number_text.h"
#include "basic/val.h"
#include "component/conventions.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::Point;

double ask_factor(host::ResumeNext& step, std::string_view prompt) {
  double factor = 0;
  step([&] { factor = utility().GetReal(new_line(prompt)); });
  return factor == 0 ? 1 : factor;
}

/// Scales entities one by one. Each member holds what a step read from an entity: where the step
/// fails, the value of the entity before is used again.
class Scaling {
 public:
  Scaling(Velmar16& velmar, host::ResumeNext& step, double x, double y)
      : velmar_(velmar), step_(step), x_(x), y_(y) {}

  void scale(const std::string& class_name, const host::Entity& scaled) {
    if (class_name == host::HeavyPolyline::class_name) {
      scale_vertices(heavy_, scaled, 3);
    } else if (class_name == host::LightweightPolyline::class_name) {
      scale_vertices(lightweight_, scaled, 2);
    } else if (class_name == host::Line::class_name) {
      redraw_line(scaled);
    } else if (class_name == host::Text::class_name) {
      redraw_text(scaled);
    } else if (class_name == host::AlignedDimension::class_name) {
      redraw_dimension(scaled);
    }
  }

 private:
  template <class T>
  void scale_vertices(T& polyline, const host::Entity& scaled, std::size_t numbers_a_vertex) {
    step_([&] { polyline = entity<T>(scaled.Handle()); });
    step_([&] { coordinates_ = polyline.Coordinates(); });
    for (std::size_t i = 1; i < coordinates_.size(); i += numbers_a_vertex) {
      step_([&] { coordinates_[i] = basic::in_range(coordinates_[i] * y_); });
    }
    for (std::size_t i = 0; i < coordinates_.size(); i += numbers_a_vertex) {
      step_([&] { coordinates_[i] = basic::in_range(coordinates_[i] * x_); });
    }
    step_([&] { polyline.Coordinates(coordinates_); });
    step_([&] { polyline.Update(); });
  }

  void redraw_line(const host::Entity& scaled) {
    step_([&] { line_ = entity<host::Line>(scaled.Handle()); });
    step_([&] { first_ = in_plan(line_.StartPoint()); });
    step_([&] { second_ = in_plan(line_.EndPoint()); });
    step_([&] { color_ = line_.Color(); });
    step_([&] { layer_ = line_.Layer(); });
    step_([&] { line_.Delete(); });
    step_([&] { line_ = model_space().AddLine(first_, second_); });
    step_([&] { line_.Layer(layer_); });
    step_([&] { line_.Color(color_); });
  }

  void redraw_text(const host::Entity& scaled) {
    step_([&] { text_ = entity<host::Text>(scaled.Handle()); });
    Point at;
    step_([&] { at = text_.InsertionPoint(); });
    step_([&] { first_.x = basic::in_range(through_text(at.x) * x_); });
    step_([&] { first_.y = basic::in_range(through_text(at.y) * y_); });
    step_([&] { rotation_ = text_.Rotation(); });
    step_([&] { color_ = text_.Color(); });
    step_([&] { layer_ = text_.Layer(); });
    step_([&] { handle_ = text_.Handle(); });
    step_([&] { style_ = text_.StyleName(); });
    step_([&] { content_ = text_.TextString(); });
    step_([&] { height_ = text_.Height(); });
    step_([&] { text_ = model_space().AddText(content_, {first_.x, first_.y, 0}, height_); });
    step_([&] { text_.Layer(layer_); });
    step_([&] { text_.Color(color_); });
    step_([&] { text_.Rotation(rotation_); });
    step_([&] { text_.StyleName(style_); });
    delete_by_handle();
  }

  void redraw_dimension(const host::Entity& scaled) {
    step_([&] { dimension_ = entity<host::AlignedDimension>(scaled.Handle()); });
    step_([&] { first_ = in_plan(dimension_.ExtLine1Point()); });
    step_([&] { second_ = in_plan(dimension_.ExtLine2Point()); });
    Point middle;
    step_([&] { middle.x = average(first_.x, second_.x); });
    step_([&] { middle.y = average(first_.y, second_.y); });
    step_([&] { layer_ = dimension_.Layer(); });
    step_([&] { style_ = dimension_.StyleName(); });
    step_([&] { handle_ = dimension_.Handle(); });
    step_([&] { dimension_ = model_space().AddDimAligned(first_, second_, middle); });
    step_([&] { dimension_.StyleName(style_); });
    step_([&] { dimension_.Layer(layer_); });
    delete_by_handle();
  }

  Point in_plan(const Point& point) const {
    return {basic::in_range(point.x * x_), basic::in_range(point.y * y_), 0};
  }

  /// Kept: a decimal comma cuts the fraction off.
  double through_text(double coordinate) const {
    return basic::val(basic::general(coordinate, velmar_.system().separators()));
  }

  double average(double a, double b) {
    Value first = a, second = b;
    return velmar_.Avr(first, second);
  }

  void delete_by_handle() {
    Value handle = handle_;
    step_([&] { velmar_.Del(handle); });
  }

  Velmar16& velmar_;
  host::ResumeNext& step_;
  const double x_, y_;

  host::HeavyPolyline heavy_;
  host::LightweightPolyline lightweight_;
  host::Line line_;
  host::Text text_;
  host::AlignedDimension dimension_;
  basic::Doubles coordinates_;
  Point first_, second_;
  std::int32_t color_ = 0;
  std::string layer_, handle_, style_, content_;
  double rotation_ = 0, height_ = 0;
};

}  // namespace

Empty Velmar16::ScaleXY(double& ScaleY, double& ScaleX) {
  host::ResumeNext step;
  ScaleX = ask_factor(step, "Enter Scale X Factor <1>=");
  ScaleY = ask_factor(step, "Enter Scale Y Factor <1>=");

  Scaling scaling(*this, step, ScaleX, ScaleY);
  step([&] {
    for (const host::Entity& candidate : model_space()) {
      std::string class_name;
      step([&] { class_name = candidate.ObjectName(); });
      scaling.scale(class_name, candidate);
    }
  });
  step([&] { application().ZoomExtents(); });
  step([&] { utility().Prompt(autocad_ready); });
  return {};
}

}  // namespace velmar
