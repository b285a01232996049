#pragma once

#include <algorithm>
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

/// How often an integral, or several, may halve the way yet: where values are mere rounding,
/// halving would change them without end.
struct Halvings {
  int depth = 40;
  int left = 16384;
  double largest = 0;  // of the parts so far: beside it, what is far smaller does not count
};

/// Halves the way until halving changes nothing.
template <class Function>
double integral(const Function& f, double from, double to, Halvings& halvings) {
  const double middle = (from + to) / 2;
  const double whole = quadrature<double>(f, from, to);
  const double halves = quadrature<double>(f, from, middle) + quadrature<double>(f, middle, to);
  halvings.largest = std::max(halvings.largest, std::abs(halves));
  const double change = std::abs(halves - whole);
  const bool settled = !(change > 1e-14 * std::abs(halves) && change > 1e-17 * halvings.largest);
  if (settled || halvings.depth == 0 || halvings.left == 0) return halves;
  --halvings.depth;
  --halvings.left;
  const double sum = integral(f, from, middle, halvings) + integral(f, middle, to, halvings);
  ++halvings.depth;
  return sum;
}

}  // namespace velmar::drawing
