#pragma once
#include "Ge/GePoint3d.h"
#include "OdString.h"
#include <optional>

class OdDbDatabase;

namespace construct {

/// Where an endless line lies. The direction has unit length.
struct Line {
  OdGePoint3d base;
  OdGeVector3d direction;
};

/// The line through `base` along a vector of any length; nothing when the vector has no direction.
std::optional<Line> lineAlong(const OdGePoint3d& base, const OdGeVector3d& way);

/// Half the sum of the unit vectors from the vertex to two points, which halves the angle between them.
/// Nothing when one of the points is the vertex, or when they lie on opposite sides of it in one line with
/// it.
std::optional<OdGeVector3d> bisector(const OdGePoint3d& vertex, const OdGePoint3d& start,
                                     const OdGePoint3d& end);

/// The direction of an axis of the current coordinate system, "UCSXDIR" or "UCSYDIR", of unit length.
/// Throws OdError(eDegenerateGeometry) where a damaged drawing has none.
OdGeVector3d ucsAxis(const OdDbDatabase& database, const OdChar* variable);

/// A direction as an angle sees it: what it is in the XY plane of the current coordinate system, of unit
/// length. Nothing for directions across the plane.
std::optional<OdGeVector3d> inUcsPlane(const OdDbDatabase& database, const OdGeVector3d& direction);

/// Whether a point lies on the left of the line as seen from the tip of the Z axis of the current coordinate
/// system, which is the side of positive offsets. A point on the line counts as right; along the axis there
/// are no sides, and everything counts as left. With a null database the sides are those of the plane that
/// holds the line and its OdGeVector3d::perpVector().
bool isOnLeft(const OdDbDatabase* database, const OdGePoint3d& point, const Line& line);

/// The line at a distance from another in the XY plane of the current coordinate system, on its left when the
/// distance is positive. Nothing for lines across the plane, and where numbers end.
std::optional<Line> offsetLine(const OdDbDatabase& database, const Line& line, double distance);

} // namespace construct
