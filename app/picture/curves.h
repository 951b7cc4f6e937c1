#pragma once
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
/// The angle from `start` on to `end`, in (0, 2 pi]; equal angles are a whole turn.
double sweepBetween(double start, double end);

/// A curve of a spline: B-spline with knots, weighted where there are weights.
struct Spline {
  int degree = 3;
  std::vector<double> knots;
  Points controls;
  std::vector<double> weights;

  bool isValid() const;
  OdGePoint3d at(double parameter) const;
  /// Appends points over the whole curve.
  void addTo(Points& points, const Brush& brush) const;
};

/// Appends points of a smooth curve through the given ones.
void addSmooth(Points& points, const Points& through, bool closed);

} // namespace picture
