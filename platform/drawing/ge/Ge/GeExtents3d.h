#pragma once
#include "GePoint3d.h"

class OdGeMatrix3d;

/// A box along the axes. It begins empty, with a minimum of 1e20 above a maximum of -1e20, as drawing files
/// write the extents of an empty drawing.
class OdGeExtents3d {
public:
  OdGeExtents3d() = default;
  OdGeExtents3d(const OdGePoint3d& minimum, const OdGePoint3d& maximum) : m_min(minimum), m_max(maximum) {}

  const OdGePoint3d& minPoint() const { return m_min; }
  const OdGePoint3d& maxPoint() const { return m_max; }
  /// False for empty extents.
  bool isValidExtents() const { return m_min.x <= m_max.x && m_min.y <= m_max.y && m_min.z <= m_max.z; }
  /// Throws OdError(eInvalidExtents) for empty extents.
  OdGePoint3d center() const;

  OdGeExtents3d& addPoint(const OdGePoint3d& point);
  OdGeExtents3d& addExt(const OdGeExtents3d& other);
  /// Adds the box moved by `offset`; empty extents stay empty.
  OdGeExtents3d& expandBy(const OdGeVector3d& offset);
  /// The box around the image of the box; empty extents stay empty.
  OdGeExtents3d& transformBy(const OdGeMatrix3d& matrix);

  bool contains(const OdGePoint3d& point, const OdGeTol& tol = OdGeContext::gTol) const;
  /// True when the boxes have no point in common.
  bool isDisjoint(const OdGeExtents3d& other, const OdGeTol& tol = OdGeContext::gTol) const;

private:
  OdGePoint3d m_min{1e20, 1e20, 1e20};
  OdGePoint3d m_max{-1e20, -1e20, -1e20};
};
