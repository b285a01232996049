#include <cstdint>

#include "basic/conversion.h"
#include "basic/rounding.h"
#include "component/velmar16.h"

namespace velmar {
namespace {

/// The caller's number becomes a whole one; one of an integer type keeps its type.
double round_in_place(Value& number, basic::Separators separators) {
  const double whole = basic::round(basic::number(number, separators));
  const bool is_integer = number.is<std::int16_t>() || number.is<std::int32_t>();
  if (!is_integer) number = whole;
  return whole;
}

/// So many steps; never minus zero.
double steps(double count, double step) { return count * step + 0.0; }

}  // namespace

// Kept, in all three: the remainder is taken with the step rounded to a whole number, the quotient
// with the step itself and cut toward zero. So 5 up to steps of 2.5 is 7.5, -7 up to steps of 5 is
// 0, and R, which compares a remainder below zero, takes -8 to -5.

double Velmar16::R(Value& N, double& A) {
  const double whole = round_in_place(N, system().separators());
  return basic::remainder(whole, A) >= A / 2 ? RUP(N, A) : RDN(N, A);
}

double Velmar16::RUP(Value& Nmbr, double& dvdr) {
  const double whole = round_in_place(Nmbr, system().separators());
  if (basic::remainder(whole, dvdr) == 0) return whole;
  return steps(basic::fix(whole / dvdr) + 1, dvdr);
}

double Velmar16::RDN(Value& N, double& A) {
  const double whole = round_in_place(N, system().separators());
  if (basic::remainder(whole, A) == 0) return whole;
  return steps(basic::fix(whole / A), A);
}

}  // namespace velmar
