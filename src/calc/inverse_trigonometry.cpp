#include <cmath>

#include "basic/arithmetic.h"
#include "component/conventions.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

bool is_sine(Velmar16& velmar, double x) {
  Value tried = x, lowest = -1.0, highest = 1.0;
  return velmar.Bt(tried, lowest, highest) == 1;
}

/// The tangent of the angle with that sine. Kept: 1 and -1 divide by zero.
double tangent(double sine) { return basic::divide(sine, basic::square_root(1 - sine * sine)); }

}  // namespace

double Velmar16::ArcSin(double& sin) {
  if (!is_sine(*this, sin)) return 0;
  return std::atan(tangent(sin)) / radians_per_degree;
}

double Velmar16::ArcCos(double& cos) {
  if (!is_sine(*this, cos)) return 0;
  return (std::atan(tangent(-cos)) + 2 * std::atan(1.0)) / radians_per_degree;
}

}  // namespace velmar
