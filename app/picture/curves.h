#pragma once
#include "Ge/GeNurbCurve3d.h"
#include "brush.h"

namespace picture {

/// Appends points of an arc: from `start`, over `sweep` (radians, negative clockwise), both ends included.
void addArc(Points& points, const OdGePoint3d& center, double radius, double start, double sweep,
            int segments);
/// Appends the points of a polyline's segment behind its start: a straight one, or an arc whose bulge is the
/// tangent of a quarter of its angle, positive when it turns counterclockwise.
void addBulge(Points& points, const OdGePoint3d& from, const OdGePoint3d& to, double bulge,
              const Brush& brush);
/// Appends points of an elliptic arc; `minor` is the other half axis.
void addEllipse(Points& points, const OdGePoint3d& center, const OdGeVector3d& major,
                const OdGeVector3d& minor, double start, double sweep, int segments);
/// Appends points over the whole of a spline.
void addSpline(Points& points, const OdGeNurbCurve3d& spline, const Brush& brush);
/// Appends points of a smooth curve through the given ones.
void addSmooth(Points& points, const Points& through, bool closed, const Brush& brush);

} // namespace picture
