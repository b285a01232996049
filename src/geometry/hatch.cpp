#include <cstddef>
#include <cstdint>
#include <string>

#include "basic/arithmetic.h"
#include "basic/conversion.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::ResumeNext;

// The host finds layers regardless of letter case: these are one and the same layer.
constexpr std::string_view hatch_layer = "Eng-HATCH", made_layer = "Eng-Hatch";
constexpr std::int32_t by_layer = 256;

host::Hatch add_lines(ResumeNext& step, double spacing) {
  host::Hatch hatch;
  step([&] { hatch = model_space().AddHatch(host::PatternType::user_defined, "ANSI31", false); });
  step([&] { hatch.PatternSpace(spacing); });
  return hatch;
}

void make_layer(ResumeNext& step, Velmar16& velmar, std::int32_t color) {
  std::string name(made_layer);
  step([&] { velmar.MLayer(name, color); });
}

void fill(ResumeNext& step, const host::Hatch& hatch, const host::Entity& boundary) {
  step([&] { hatch.AppendOuterLoop(boundary); });
  step([&] { hatch.Evaluate(); });
}

void show(ResumeNext& step) {
  step([&] { active_document().Regen(host::Viewports::basic_true); });
  step([&] { application().ZoomExtents(); });
}

/// The corners of the rectangle, one after the other, as x, y, z. A number that fails stays 0.
basic::Doubles corners(ResumeNext& step, const Value& length, const Value& height, const Value& x,
                       double y, basic::Separators separators) {
  constexpr double signs[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
  basic::Doubles points(12);
  for (std::size_t i = 0; i < 4; ++i) {
    const auto from = [&](double centre, double sign, const Value& size) {
      return basic::in_range(centre + sign * basic::number(size, separators) / 2);
    };
    step([&] { points[3 * i] = from(basic::number(x, separators), signs[i][0], length); });
    step([&] { points[3 * i + 1] = from(y, signs[i][1], height); });
  }
  return points;
}

}  // namespace

Empty Velmar16::Hatch(Value& L, Value& H, Value& X0, double& Y0) {
  ResumeNext step;
  const host::Hatch hatch = add_lines(step, 25.0);
  step([&] { hatch.Layer(hatch_layer); });  // fails where there is no such layer yet
  step([&] { hatch.Color(by_layer); });

  host::HeavyPolyline boundary;
  const basic::Doubles points = corners(step, L, H, X0, Y0, system().separators());
  step([&] { boundary = model_space().AddPolyline(points); });
  step([&] { boundary.Closed(true); });
  fill(step, hatch, boundary);

  make_layer(step, *this, 0);
  step([&] { hatch.Layer(made_layer); });
  step([&] { boundary.Delete(); });
  show(step);
  return {};
}

Empty Velmar16::HatchAligned(std::string& ObjHndl) {
  ResumeNext step;
  const host::Hatch hatch = add_lines(step, 1000.0);  // Kept: not the spacing of Hatch
  make_layer(step, *this, 8);                         // Kept: nor its layer's colour
  step([&] { hatch.Layer(hatch_layer); });
  step([&] { hatch.Color(by_layer); });

  host::Entity boundary;
  step([&] { boundary = active_document().HandleToObject(ObjHndl); });
  fill(step, hatch, boundary);
  step([&] { hatch.Layer(made_layer); });
  show(step);
  return {};
}

}  // namespace velmar
