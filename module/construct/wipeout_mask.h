#pragma once
#include "DbPolyline.h"
#include "HostEdInput.h"

namespace construct {

/// Makes a wipeout of a polyline and appends it to a block record. Tells the user when the polyline is not
/// closed or has arcs; asks whether to erase one that is in the drawing. Whether there is a wipeout now.
/// Throws OdError, with nothing made or erased: eDegenerateGeometry for a polyline without area.
bool makeWipeout(HostEdInput& input, OdDbDatabase& database, OdDbObjectId owner,
                 const OdDbPolylinePtr& polyline);

} // namespace construct
