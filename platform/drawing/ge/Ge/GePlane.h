#pragma once
#include "GePoint3d.h"

/// An unbounded plane with a right-handed coordinate system of unit axes; its normal is the Z axis.
class OdGePlane {
public:
  /// The XY plane of the world.
  OdGePlane() = default;
  /// The axes follow the arbitrary axis rule of drawing files. Throws OdError(eDegenerateGeometry) for a zero
  /// normal.
  OdGePlane(const OdGePoint3d& origin, const OdGeVector3d& normal);
  /// The X axis is uAxis; vAxis settles the side of the normal and need not be perpendicular. Throws
  /// OdError(eDegenerateGeometry) for parallel axes.
  OdGePlane(const OdGePoint3d& origin, const OdGeVector3d& uAxis, const OdGeVector3d& vAxis);

  const OdGePoint3d& pointOnPlane() const { return m_origin; }
  const OdGeVector3d& normal() const { return m_normal; }
  void getCoordSystem(OdGePoint3d& origin, OdGeVector3d& uAxis, OdGeVector3d& vAxis) const;

  /// Positive on the side that the normal points to.
  double signedDistanceTo(const OdGePoint3d& point) const { return (point - m_origin).dotProduct(m_normal); }
  /// The foot of the perpendicular.
  OdGePoint3d project(const OdGePoint3d& point) const { return point - m_normal * signedDistanceTo(point); }
  /// The point where the line through `point` along `direction` meets the plane. Throws
  /// OdError(eDegenerateGeometry) when the direction is parallel to the plane or zero.
  OdGePoint3d project(const OdGePoint3d& point, const OdGeVector3d& direction) const;
  /// The same, but false, leaving `result` alone, instead of an exception.
  bool intersectWithLine(const OdGePoint3d& point, const OdGeVector3d& direction, OdGePoint3d& result,
                         const OdGeTol& tol = OdGeContext::gTol) const;

private:
  OdGePoint3d m_origin;
  OdGeVector3d m_normal = OdGeVector3d::kZAxis;
  OdGeVector3d m_uAxis = OdGeVector3d::kXAxis;
};
