#include "Ge/GePlane.h"

OdGePlane::OdGePlane(const OdGePoint3d& origin, const OdGeVector3d& normal)
    : m_origin(origin), m_normal(OdGeVector3d(normal).normalize()), m_uAxis(m_normal.perpVector()) {}

OdGePlane::OdGePlane(const OdGePoint3d& origin, const OdGeVector3d& uAxis, const OdGeVector3d& vAxis)
    : m_origin(origin), m_uAxis(OdGeVector3d(uAxis).normalize()) {
  m_normal = m_uAxis.crossProduct(OdGeVector3d(vAxis).normalize()).normalize();
}

void OdGePlane::getCoordSystem(OdGePoint3d& origin, OdGeVector3d& uAxis, OdGeVector3d& vAxis) const {
  origin = m_origin;
  uAxis = m_uAxis;
  vAxis = m_normal.crossProduct(m_uAxis);
}

OdGePoint3d OdGePlane::project(const OdGePoint3d& point, const OdGeVector3d& direction) const {
  OdGePoint3d result;
  if (!intersectWithLine(point, direction, result)) throw OdError(eDegenerateGeometry);
  return result;
}

bool OdGePlane::intersectWithLine(const OdGePoint3d& point, const OdGeVector3d& direction,
                                  OdGePoint3d& result, const OdGeTol& tol) const {
  if (direction.isZeroLength(tol) || direction.isPerpendicularTo(m_normal, tol)) return false;
  result = point - direction * (signedDistanceTo(point) / direction.dotProduct(m_normal));
  return true;
}
