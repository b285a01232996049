#include <string>

#include "basic/arithmetic.h"
#include "basic/conversion.h"
#include "basic/number_text.h"
#include "basic/rounding.h"
#include "component/session.h"
#include "component/velmar16.h"
#include "host/error_styles.h"

namespace velmar {
namespace {

using host::ResumeNext;

constexpr std::string_view dimension_layer = "Eng-dimension";

/// The two measured points, as the caller gave them.
struct Measured {
  const Value &x1, &y1, &x2;
  double y2;
  basic::Separators separators;

  double number(const Value& value) const { return basic::number(value, separators); }
  std::string text(const Value& value) const { return basic::text(value, separators); }
};

/// Whether two coordinates are apart by less than 1. A condition that fails does not hold.
bool coincide(ResumeNext& step, const Measured& measured, const Value& a, const Value& b) {
  bool same = false;
  step([&] {
    const double apart = basic::in_range(measured.number(a) - measured.number(b));
    same = basic::fix(apart) == 0;
  });
  return same;
}

/// What a user would type for a linear dimension with its line at this distance.
std::string linear_dimension(ResumeNext& step, const Measured& measured, double distance) {
  std::string orientation = "V", line_x, line_y;
  const auto beside = [&](const Value& coordinate) {
    const double at = basic::in_range(measured.number(coordinate) - distance);
    return basic::general(at, measured.separators);
  };
  if (coincide(step, measured, measured.x1, measured.x2)) {
    step([&] { line_x = beside(measured.x1); });
    line_y = "0";
  }
  // Kept: where both coincide this one counts; where neither does, the line has no place.
  if (coincide(step, measured, measured.y1, measured.y2)) {
    orientation = "H";
    line_x = "0";
    step([&] { line_y = beside(measured.y1); });
  }

  std::string typed;
  step([&] {
    typed = "_DIMLINEAR\r" + measured.text(measured.x1) + "," + measured.text(measured.y1) + "\r" +
            measured.text(measured.x2) + "," + measured.text(measured.y2) + "\r" + orientation +
            "\r" + line_x + "," + line_y + "\r";
  });
  return typed;
}

/// Through the host's own command, as if typed.
void add_by_command(ResumeNext& step, Velmar16& velmar, const Measured& measured, double distance,
                    const std::string& style) {
  const std::string typed = linear_dimension(step, measured, distance);
  step([&] { active_document().SendCommand(typed); });

  double newest = 0;
  std::string layer(dimension_layer), kind = "D";
  step([&] { newest = velmar.IDLast(); });
  step([&] { velmar.Mo2Lr(newest, layer, kind); });
  if (style.empty()) return;
  step([&] { newest = velmar.IDLast(); });
  step([&] {
    const std::string handle = basic::general(newest, measured.separators);
    entity<host::Dimension>(handle).StyleName(style);
  });
}

/// Through the object model.
void add_aligned(ResumeNext& step, Velmar16& velmar, const Measured& measured,
                 const std::string& style) {
  host::Point first, second, middle;
  step([&] { first.x = measured.number(measured.x1); });
  step([&] { first.y = measured.number(measured.y1); });
  step([&] { second.x = measured.number(measured.x2); });
  second.y = measured.y2;
  Value x1 = measured.x1, x2 = measured.x2, y1 = measured.y1, y2 = measured.y2;
  step([&] { middle.x = velmar.Avr(x1, x2); });
  step([&] { middle.y = velmar.Avr(y1, y2); });

  host::AlignedDimension dimension;
  step([&] { dimension = model_space().AddDimAligned(first, second, middle); });
  step([&] { dimension.Fit(host::DimensionFit::best); });
  step([&] { dimension.TextInside(true); });
  step([&] { dimension.ForceLineInside(true); });
  if (!style.empty()) step([&] { dimension.StyleName(style); });

  std::string layer(dimension_layer);
  std::int32_t no_color = 0;
  step([&] { velmar.MLayer(layer, no_color); });
  step([&] { dimension.Layer(dimension_layer); });
  step([&] { dimension.TextPosition(middle); });
}

}  // namespace

Empty Velmar16::DimAL(Value& X1, Value& Y1, Value& X2, double& Y2, std::string& DimStyle,
                      bool& Acadw, double& dISt) {
  constexpr double usual_distance = 2000;
  if (dISt == 0) dISt = usual_distance;

  ResumeNext step;
  const Measured measured{X1, Y1, X2, Y2, system().separators()};
  if (Acadw) {
    add_by_command(step, *this, measured, dISt, DimStyle);
  } else {
    add_aligned(step, *this, measured, DimStyle);
  }
  return {};
}

}  // namespace velmar
