#pragma once
#include "DbPolyline.h"
#include "frame/session.h"

namespace construct {

/// Moves the last vertex of a polyline to the foot of the perpendicular from a point in world coordinates.
void moveLastVertex(OdDbPolyline& bounds, const OdGePoint3d& point);

/// Asks for the corners behind the first one. The boundary is a closed polyline that is in no drawing, in the
/// plane with this normal through the start point. Null: cancelled.
OdDbPolylinePtr pickBounds(HostEdInput& input, const OdGePoint3d& start, const OdGeVector3d& normal);

} // namespace construct
