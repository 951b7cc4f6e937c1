#include "Ge/GeExtents2d.h"
#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"
#include <algorithm>

OdGePoint3d OdGeExtents3d::center() const {
  if (!isValidExtents()) throw OdError(eInvalidExtents);
  return m_min + (m_max - m_min) / 2;
}

OdGeExtents3d& OdGeExtents3d::addPoint(const OdGePoint3d& p) { return addExt({p, p}); }

OdGeExtents3d& OdGeExtents3d::addExt(const OdGeExtents3d& other) {
  if (!other.isValidExtents()) return *this;
  if (!isValidExtents()) return *this = other;
  m_min.set(std::min(m_min.x, other.m_min.x), std::min(m_min.y, other.m_min.y),
            std::min(m_min.z, other.m_min.z));
  m_max.set(std::max(m_max.x, other.m_max.x), std::max(m_max.y, other.m_max.y),
            std::max(m_max.z, other.m_max.z));
  return *this;
}

OdGeExtents3d& OdGeExtents3d::expandBy(const OdGeVector3d& offset) {
  return addExt({m_min + offset, m_max + offset});
}

OdGeExtents3d& OdGeExtents3d::transformBy(const OdGeMatrix3d& matrix) {
  if (!isValidExtents()) return *this;
  OdGeExtents3d image;
  for (const double x : {m_min.x, m_max.x}) {
    for (const double y : {m_min.y, m_max.y}) {
      for (const double z : {m_min.z, m_max.z}) image.addPoint(matrix * OdGePoint3d(x, y, z));
    }
  }
  return *this = image;
}

bool OdGeExtents3d::contains(const OdGePoint3d& point, const OdGeTol& tol) const {
  return isValidExtents() && !isDisjoint({point, point}, tol);
}

bool OdGeExtents3d::isDisjoint(const OdGeExtents3d& other, const OdGeTol& tol) const {
  const auto apart = [&tol](double low, double high) { return low - high > tol.equalPoint(); };
  return apart(m_min.x, other.m_max.x) || apart(other.m_min.x, m_max.x) || apart(m_min.y, other.m_max.y) ||
         apart(other.m_min.y, m_max.y) || apart(m_min.z, other.m_max.z) || apart(other.m_min.z, m_max.z);
}

OdGeExtents2d& OdGeExtents2d::addPoint(const OdGePoint2d& p) { return addExt({p, p}); }

OdGeExtents2d& OdGeExtents2d::addExt(const OdGeExtents2d& other) {
  if (!other.isValidExtents()) return *this;
  if (!isValidExtents()) return *this = other;
  m_min.set(std::min(m_min.x, other.m_min.x), std::min(m_min.y, other.m_min.y));
  m_max.set(std::max(m_max.x, other.m_max.x), std::max(m_max.y, other.m_max.y));
  return *this;
}

bool OdGeExtents2d::contains(const OdGePoint2d& point, const OdGeTol& tol) const {
  const double t = tol.equalPoint();
  return isValidExtents() && point.x >= m_min.x - t && point.x <= m_max.x + t && point.y >= m_min.y - t &&
         point.y <= m_max.y + t;
}
