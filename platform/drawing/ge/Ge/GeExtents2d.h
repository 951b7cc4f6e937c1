#pragma once
#include "GePoint2d.h"

/// A rectangle along the axes. It begins empty, with a minimum of 1e20 above a maximum of -1e20.
class OdGeExtents2d {
public:
  OdGeExtents2d() = default;
  OdGeExtents2d(const OdGePoint2d& minimum, const OdGePoint2d& maximum) : m_min(minimum), m_max(maximum) {}

  const OdGePoint2d& minPoint() const { return m_min; }
  const OdGePoint2d& maxPoint() const { return m_max; }
  /// False for empty extents.
  bool isValidExtents() const { return m_min.x <= m_max.x && m_min.y <= m_max.y; }

  OdGeExtents2d& addPoint(const OdGePoint2d& point);
  OdGeExtents2d& addExt(const OdGeExtents2d& other);
  bool contains(const OdGePoint2d& point, const OdGeTol& tol = OdGeContext::gTol) const;

private:
  OdGePoint2d m_min{1e20, 1e20};
  OdGePoint2d m_max{-1e20, -1e20};
};
