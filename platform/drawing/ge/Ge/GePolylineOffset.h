#pragma once
#include "GePoint2d.h"
#include <vector>

/// A polyline in the plane. Each vertex has the bulge of the segment that begins there: the tangent of a
/// quarter of its angle, positive when it turns counterclockwise.
struct OdGeFlatPolyline {
  std::vector<OdGePoint2d> points;
  std::vector<double> bulges;
  bool isClosed = false;
};

/// The polylines at a distance, to the right for a positive one. Corners that open are extended between
/// straight segments and rounded elsewhere. What would come nearer to the polyline than the distance is left
/// out, so there can be several polylines or none. Throws OdError, eInvalidInput for numbers that are not
/// finite and eDegenerateGeometry for a polyline without length.
std::vector<OdGeFlatPolyline> odGeOffset(const OdGeFlatPolyline& polyline, double distance);
