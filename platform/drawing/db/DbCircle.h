#pragma once
#include "DbCurve.h"

namespace odDbOcs {
struct Image;
}

/// What circles and arcs have in common. The parameter is the angle in the plane, in radians.
class OdDbCircularCurve : public OdDbCurve {
  ODRX_DECLARE_MEMBERS(OdDbCircularCurve);

public:
  /// In world coordinates.
  OdGePoint3d center() const;
  void setCenter(const OdGePoint3d& center);
  double radius() const;
  void setRadius(double radius);
  double thickness() const;
  void setThickness(double thickness);
  /// Setting it leaves the centre where it is.
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);

  /// Refuses what would make an ellipse of the circle.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  /// eInvalidInput when nothing is left of the radius.
  OdResult getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const override;

protected:
  std::unique_ptr<OdGeCurve3d> makeGeCurve() const override;
  /// The angles between which the curve runs, no more than a turn apart.
  virtual std::pair<double, double> range() const { return {0, Oda2PI}; }
  static const OdDbSubclass kSection;
  /// The point of the circle in the direction of an angle of its plane.
  OdGePoint3d pointAt(double angle) const;
  /// Whether the curve has a point in this direction.
  virtual bool covers(double) const { return true; }
  /// Called with each transformation.
  virtual void turn(const odDbOcs::Image&) {}
};

/// A circle.
class OdDbCircle : public OdDbCircularCurve {
  ODRX_DECLARE_MEMBERS(OdDbCircle);

public:
  OdDbSchema schema() const override;
};
using OdDbCirclePtr = OdSmartPtr<OdDbCircle>;
