#pragma once
// Checks and root finding that the curves share. Internal to the drawing library.
#include "Ge/GePoint3d.h"
#include <boost/math/tools/toms748_solve.hpp>
#include <cmath>

namespace odGeSolve {

inline void requireFinite(double number) {
  if (!std::isfinite(number)) throw OdError(eInvalidInput);
}
inline void requireFinite(const OdGeVector3d& v) {
  for (const double number : {v.x, v.y, v.z}) requireFinite(number);
}
inline void requireFinite(const OdGePoint3d& p) { requireFinite(p.asVector()); }
/// A length that a curve can have.
inline void requireExtent(double length) {
  if (!(length > OdGeContext::gTol.equalPoint()) || !std::isfinite(length))
    throw OdError(eDegenerateGeometry);
}

/// Where a continuous function changes its sign, to the last few bits. The values at the ends must not have
/// the same sign; an end that is no farther than rounding from 0 is the answer.
template <class Function>
double root(const Function& f, double low, double high, double atLow, double atHigh) {
  if (atLow == 0 || low >= high) return low;
  if (atHigh == 0) return high;
  if ((atLow < 0) == (atHigh < 0)) return std::fabs(atLow) <= std::fabs(atHigh) ? low : high;
  boost::uintmax_t rounds = 200;
  const auto [below, above] = boost::math::tools::toms748_solve(
      f, low, high, atLow, atHigh, boost::math::tools::eps_tolerance<double>(51), rounds);
  return below + (above - below) / 2;
}
template <class Function>
double root(const Function& f, double low, double high) {
  return root(f, low, high, f(low), f(high));
}

} // namespace odGeSolve
