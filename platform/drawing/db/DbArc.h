#pragma once
#include "DbCircle.h"

/// A part of a circle, counterclockwise about the normal from its start angle to its end angle (radians, from
/// the X axis of its plane).
class OdDbArc : public OdDbCircularCurve {
  ODRX_DECLARE_MEMBERS(OdDbArc);

public:
  double startAngle() const;
  void setStartAngle(double radians);
  double endAngle() const;
  void setEndAngle(double radians);
  OdGePoint3d startPoint() const { return pointAt(startAngle()); }
  OdGePoint3d endPoint() const { return pointAt(endAngle()); }

  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  OdDbSchema schema() const override;

protected:
  std::pair<double, double> range() const override;
  bool covers(double angle) const override;
  void turn(const odDbOcs::Image& image) override;
};
using OdDbArcPtr = OdSmartPtr<OdDbArc>;
