#pragma once
#include "DbCurve.h"

/// An ellipse or a part of one, counterclockwise about its normal. Everything is in world coordinates. The
/// parameter t of a point is the one in center + majorAxis cos t + minorAxis sin t.
class OdDbEllipse : public OdDbCurve {
  ODRX_DECLARE_MEMBERS(OdDbEllipse);

public:
  /// Angles are radians, of points as seen from the centre, from the major axis on. Throws
  /// OdError(eInvalidInput) unless the ratio is in (0, 1] and the major axis perpendicular to the normal, and
  /// eDegenerateGeometry for vectors that are zero.
  void set(const OdGePoint3d& center, const OdGeVector3d& normal, const OdGeVector3d& majorAxis,
           double radiusRatio, double startAngle = 0, double endAngle = Oda2PI);
  OdGePoint3d center() const;
  void setCenter(const OdGePoint3d& center);
  OdGeVector3d normal() const;
  OdGeVector3d majorAxis() const;
  OdGeVector3d minorAxis() const;
  /// Of the minor axis to the major one.
  double radiusRatio() const;
  double startAngle() const { return angleAtParam(startParam()); }
  void setStartAngle(double radians);
  double endAngle() const { return angleAtParam(endParam()); }
  void setEndAngle(double radians);
  /// In the same turn as the parameter or angle.
  double angleAtParam(double param) const;
  double paramAtAngle(double angle) const;

  /// Any transform: an ellipse stays one.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  /// Of circular ones only: the parallel of an ellipse is none.
  OdResult getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const override;
  OdDbSchema schema() const override;

protected:
  std::unique_ptr<OdGeCurve3d> makeGeCurve() const override;

private:
  double startParam() const;
  double endParam() const;
};
using OdDbEllipsePtr = OdSmartPtr<OdDbEllipse>;
