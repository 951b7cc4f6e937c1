#include "Ge/GeEllipArc3d.h"
#include "CurveSolve.h"
#include "OdPlatform.h"
#include <algorithm>
#include <boost/math/special_functions/ellint_2.hpp>
#include <vector>

namespace {

/// Angles this close are one: what is left when degrees of files become radians.
constexpr double kSameAngle = 1e-12;

/// The parameters at which the distance to a point of the plane has a minimum on the whole ellipse. The point
/// is mirrored into the quadrant x, y >= 0, in which the nearest point lies, too. Half of the derivative of
/// the squared distance is f = -c sin t cos t + a x sin t - b y cos t with c = a^2 - b^2 >= 0. It has one
/// root in the first quadrant, none in the second, a maximum in the third; in the fourth, where
/// f = -sin cos (-c + a x / cos + b y / |sin|), the bracket is convex and has none or two roots.
class Feet {
public:
  Feet(double a, double b, double x, double y) : m_a(a), m_b(b), m_x(x), m_y(y), m_c(a * a - b * b) {}

  std::vector<double> minima() const {
    std::vector<double> found = {first()};
    if (double second = 0; fourthQuadrant(second)) found.push_back(second);
    // On an axis of the ellipse, what is below it mirrors what is above.
    if (m_y == 0) found.push_back(-found.front());
    if (m_x == 0) found.push_back(-OdaPI2);
    return found;
  }

private:
  double slope(double t) const {
    const double s = std::sin(t);
    const double c = std::cos(t);
    return -m_c * s * c + m_a * m_x * s - m_b * m_y * c;
  }
  double first() const {
    if (m_y == 0) return m_a * m_x < m_c ? std::acos(m_a * m_x / m_c) : 0;
    if (m_x == 0) return OdaPI2;
    return odGeSolve::root([this](double t) { return slope(t); }, 0, OdaPI2);
  }
  bool fourthQuadrant(double& param) const {
    if (m_x == 0 || m_y == 0) return false;
    const double lowest = -std::atan(std::cbrt(m_b * m_y / (m_a * m_x)));
    if (!(slope(lowest) > 0)) return false;
    param = odGeSolve::root([this](double t) { return slope(t); }, -OdaPI2, lowest);
    return true;
  }

  double m_a;
  double m_b;
  double m_x;
  double m_y;
  double m_c;
};

} // namespace

double OdGeEllipArc3d::sweep(double start, double end) {
  double sweep = std::fmod(end - start, Oda2PI);
  if (sweep < 0) sweep += Oda2PI;
  return sweep < kSameAngle ? Oda2PI : sweep;
}

OdGeEllipArc3d::OdGeEllipArc3d(const OdGePoint3d& center, const OdGeVector3d& major,
                               const OdGeVector3d& minor, double from, double to)
    : m_center(center), m_major(major), m_minor(minor), m_majorLength(major.length()),
      m_minorLength(minor.length()), m_from(from), m_to(to) {
  odGeSolve::requireFinite(center);
  odGeSolve::requireFinite(major);
  odGeSolve::requireFinite(minor);
  odGeSolve::requireExtent(m_majorLength);
  odGeSolve::requireExtent(m_minorLength);
  if (!std::isfinite(from) || !std::isfinite(to) || !(to > from)) throw OdError(eInvalidInput);
  if (to - from > Oda2PI + kSameAngle) throw OdError(eInvalidInput);
  constexpr double kRounding = 1e-14;
  m_isCircular = std::fabs(m_majorLength - m_minorLength) <= kRounding * m_majorLength;
}

bool OdGeEllipArc3d::isClosed() const { return m_to - m_from >= Oda2PI - kSameAngle; }

OdGeCurve3d::Evaluation OdGeEllipArc3d::evaluate(double param) const {
  const double c = std::cos(param);
  const double s = std::sin(param);
  const OdGeVector3d arm = m_major * c + m_minor * s;
  return {m_center + arm, m_minor * c - m_major * s, -arm};
}

/// The length from where the longer axis ends, as an elliptic integral of the second kind. With the angle
/// measured from the shorter axis, the speed is a sqrt(1 - k^2 sin^2), k^2 = 1 - (b / a)^2.
double OdGeEllipArc3d::integral(double param) const {
  const double a = std::max(m_majorLength, m_minorLength);
  const double ratio = std::min(m_majorLength, m_minorLength) / a;
  const double k = std::sqrt((1 - ratio) * (1 + ratio));
  const double angle = m_majorLength >= m_minorLength ? param - OdaPI2 : param;
  return a * boost::math::ellint_2(k, angle);
}

double OdGeEllipArc3d::lengthTo(double param) const {
  if (m_isCircular) return m_majorLength * (param - m_from);
  return integral(param) - integral(m_from);
}

double OdGeEllipArc3d::paramAtLength(double length) const {
  if (m_isCircular) return std::clamp(m_from + length / m_majorLength, m_from, m_to);
  const double start = integral(m_from);
  const double whole = integral(m_to) - start;
  if (!(length > 0)) return m_from;
  if (length >= whole) return m_to;
  return odGeSolve::root([&](double t) { return integral(t) - start - length; }, m_from, m_to, -length,
                         whole - length);
}

double OdGeEllipArc3d::closestParam(const OdGePoint3d& point) const {
  const OdGeVector3d arm = point - m_center;
  const double x = arm.dotProduct(m_major) / m_majorLength;
  const double y = arm.dotProduct(m_minor) / m_minorLength;
  std::vector<double> candidates;
  if (m_isCircular) {
    candidates = {x == 0 && y == 0 ? m_from : std::atan2(y, x)};
  } else {
    const bool isUpright = m_minorLength > m_majorLength;
    candidates = isUpright ? Feet(m_minorLength, m_majorLength, std::fabs(y), std::fabs(x)).minima()
                           : Feet(m_majorLength, m_minorLength, std::fabs(x), std::fabs(y)).minima();
    for (double& t : candidates) { // back into the quadrant of the point
      double c = std::cos(t);
      double s = std::sin(t);
      if (isUpright) std::swap(c, s);
      t = std::atan2(std::copysign(1, y) * s, std::copysign(1, x) * c);
    }
  }
  double best = distanceSqrd(m_from, point) <= distanceSqrd(m_to, point) ? m_from : m_to;
  double least = distanceSqrd(best, point);
  for (double t : candidates) {
    t = m_from + (sweep(m_from, t) < Oda2PI ? sweep(m_from, t) : 0);
    if (t > m_to) continue;
    if (const double distance = distanceSqrd(t, point); distance < least) {
      least = distance;
      best = t;
    }
  }
  return best;
}

OdGeExtents3d OdGeEllipArc3d::extents() const {
  OdGeExtents3d box;
  box.addPoint(evalPoint(m_from)).addPoint(evalPoint(m_to));
  // Along each world axis the ellipse is widest where its tangent is perpendicular to the axis.
  for (const double peak :
       {std::atan2(m_minor.x, m_major.x), std::atan2(m_minor.y, m_major.y), std::atan2(m_minor.z, m_major.z)})
    for (const double angle : {peak, peak + OdaPI})
      if (const double way = sweep(m_from, angle); m_from + way <= m_to)
        box.addPoint(evalPoint(m_from + way));
  return box;
}
