#include "Ge/GeLinearEnt3d.h"
#include "CurveSolve.h"
#include <algorithm>

OdGeLinearEnt3d::OdGeLinearEnt3d(const OdGePoint3d& start, const OdGePoint3d& end)
    : OdGeLinearEnt3d(start, end - start, 0, (end - start).length()) {}

OdGeLinearEnt3d::OdGeLinearEnt3d(const OdGePoint3d& base, const OdGeVector3d& direction, double low,
                                 double high)
    : m_base(base), m_direction(direction), m_low(low), m_high(high) {
  odGeSolve::requireFinite(base);
  odGeSolve::requireFinite(direction);
  const double length = direction.length();
  odGeSolve::requireExtent(length);
  m_direction /= length;
  if (!(low < high)) throw OdError(eInvalidInput);
}

double OdGeLinearEnt3d::paramAtLength(double length) const {
  return std::clamp(hasStart() ? m_low + length : length, m_low, m_high);
}

double OdGeLinearEnt3d::closestParam(const OdGePoint3d& point) const {
  return std::clamp((point - m_base).dotProduct(m_direction), m_low, m_high);
}

OdGeExtents3d OdGeLinearEnt3d::extents() const {
  if (!hasStart() || !hasEnd()) throw OdError(eInvalidExtents);
  return OdGeExtents3d().addPoint(evalPoint(m_low)).addPoint(evalPoint(m_high));
}
