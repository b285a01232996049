#pragma once

#include <cmath>

namespace velmar::drawing {

/// Gauss-Legendre with eight points: exact for polynomials up to degree 15. `Value` is what `f`
/// gives: numbers or vectors.
template <class Value, class Function>
Value quadrature(const Function& f, double from, double to) {
  constexpr double nodes[] = {0.1834346424956498, 0.5255324099163290, 0.7966664774136267,
                              0.9602898564975363};
  constexpr double weights[] = {0.3626837833783620, 0.3137066458778873, 0.2223810344533745,
                                0.1012285362903763};
  const double middle = (from + to) / 2, half = (to - from) / 2;
  Value sum{};
  for (int i = 0; i < 4; ++i)
    sum = sum + (f(middle - half * nodes[i]) + f(middle + half * nodes[i])) * weights[i];
  return sum * half;
}

/// Halves the way until halving changes nothing; `depth` bounds the work for values that are no
/// numbers.
template <class Function>
double integral(const Function& f, double from, double to, int depth = 40) {
  const double middle = (from + to) / 2;
  const double whole = quadrature<double>(f, from, to);
  const double halves = quadrature<double>(f, from, middle) + quadrature<double>(f, middle, to);
  if (depth == 0 || !(std::abs(halves - whole) > 1e-14 * std::abs(halves))) return halves;
  return integral(f, from, middle, depth - 1) + integral(f, middle, to, depth - 1);
}

}  // namespace velmar::drawing
