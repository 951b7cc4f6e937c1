#pragma once
#include "DbCurve.h"
#include "Ge/GePoint3dArray.h"

using OdGeDoubleArray = OdArray<double>;

/// A spline: a B-spline with control points, rational where it has weights; or only points that it goes
/// through. Its parameters are those of its knots; with fit points only, the sum of their distances.
class OdDbSpline : public OdDbCurve {
  ODRX_DECLARE_MEMBERS(OdDbSpline);

public:
  int degree() const;
  bool isRational() const;
  unsigned int numControlPoints() const;
  /// Throws OdError_InvalidIndex.
  OdGePoint3d getControlPointAt(unsigned int index) const;
  unsigned int numFitPoints() const;
  OdGePoint3d getFitPointAt(unsigned int index) const;
  bool hasFitData() const { return numFitPoints() > 0; }

  /// The weights are empty where the spline is not rational.
  void getNurbsData(int& degree, bool& rational, bool& closed, bool& periodic,
                    OdGePoint3dArray& controlPoints, OdGeDoubleArray& knots, OdGeDoubleArray& weights) const;
  /// Replaces the whole spline; the fit points go. Throws OdError, with nothing changed, for data that
  /// describe no curve.
  void setNurbsData(int degree, bool rational, bool closed, bool periodic,
                    const OdGePoint3dArray& controlPoints, const OdGeDoubleArray& knots,
                    const OdGeDoubleArray& weights);
  /// Makes it the cubic spline through the points. Tangents of zero length are none: the spline ends without
  /// curvature. Throws OdError(eDegenerateGeometry) for fewer than two different points.
  void setFitData(const OdGePoint3dArray& fitPoints, bool closed, const OdGeVector3d& startTangent,
                  const OdGeVector3d& endTangent);

  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdDbSchema schema() const override;

protected:
  std::unique_ptr<OdGeCurve3d> makeGeCurve() const override;

private:
  std::vector<OdGePoint3d> points(int code) const;
  std::vector<double> reals(int code) const;
  OdGePoint3d pointAt(int code, unsigned int index) const;
  void clearCurve();
};
using OdDbSplinePtr = OdSmartPtr<OdDbSpline>;
