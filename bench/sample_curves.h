#pragma once
// Curves of any number of pieces, for measurements.
#include "DbEllipse.h"
#include "DbPolyline.h"
#include "DbSpline.h"
#include <algorithm>
#include <cmath>

inline OdDbCurvePtr polyline(int vertices) {
  OdDbPolylinePtr made = OdDbPolyline::createObject();
  for (int i = 0; i < vertices; ++i)
    made->addVertexAt(made->numVerts(), OdGePoint2d(i, 5 * std::sin(i * 0.7)), i % 3 ? 0 : 0.4);
  return made;
}

inline OdDbCurvePtr spline(int controls) {
  OdGePoint3dArray points;
  OdGeDoubleArray knots;
  for (int i = 0; i < controls; ++i) points.append(OdGePoint3d(i, 5 * std::sin(i * 0.7), std::cos(i * 0.3)));
  for (int i = 0; i < controls + 4; ++i) knots.append(std::clamp(i - 3, 0, controls - 3));
  OdDbSplinePtr made = OdDbSpline::createObject();
  made->setNurbsData(3, false, false, false, points, knots, {});
  return made;
}

/// In one piece whatever the number.
inline OdDbCurvePtr ellipse(int) {
  OdDbEllipsePtr made = OdDbEllipse::createObject();
  made->set({1, 2, 3}, OdGeVector3d::kZAxis, {10, 0, 0}, 0.2);
  return made;
}
