#pragma once
#include "GeExtents3d.h"
#include <cmath>

/// A curve in space as a function of a parameter. A curve is sound from its construction on: constructors
/// throw OdError, eInvalidInput for numbers that describe no curve (not finite, counts that disagree) and
/// eDegenerateGeometry for one without extent. Parameters given to the functions lie in the curve's range.
class OdGeCurve3d {
public:
  /// A point with the derivatives by the parameter.
  struct Evaluation {
    OdGePoint3d point;
    OdGeVector3d first;
    OdGeVector3d second;
  };

  OdGeCurve3d() = default;
  virtual ~OdGeCurve3d() = default;
  OdGeCurve3d(const OdGeCurve3d&) = delete;
  OdGeCurve3d& operator=(const OdGeCurve3d&) = delete;

  /// Infinite where the curve has no end.
  virtual double startParam() const = 0;
  virtual double endParam() const = 0;
  bool hasStart() const { return std::isfinite(startParam()); }
  bool hasEnd() const { return std::isfinite(endParam()); }
  /// Whether the ends meet.
  virtual bool isClosed() const = 0;
  /// Whether they meet without a corner, so that the curve could go on for another turn.
  virtual bool isPeriodic() const { return false; }

  virtual Evaluation evaluate(double param) const = 0;
  OdGePoint3d evalPoint(double param) const { return evaluate(param).point; }
  /// The length of the curve from its start, or from its base point where it has no start, to the parameter;
  /// the inverse. Lengths beyond the ends give the ends. Both are exact to 1e-12 of the whole length.
  virtual double lengthTo(double param) const = 0;
  virtual double paramAtLength(double length) const = 0;
  double length() const { return lengthTo(endParam()); }
  /// The parameter of the point nearest to the given one; of several the first that is found.
  virtual double closestParam(const OdGePoint3d& point) const = 0;
  /// The box around the curve. Throws OdError(eInvalidExtents) for a curve without ends.
  virtual OdGeExtents3d extents() const = 0;
};
