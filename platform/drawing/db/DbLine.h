#pragma once
#include "DbCurve.h"

/// A straight line between two points. Its parameter is the distance from the start.
class OdDbLine : public OdDbCurve {
  ODRX_DECLARE_MEMBERS(OdDbLine);

public:
  OdGePoint3d startPoint() const;
  void setStartPoint(const OdGePoint3d& point);
  OdGePoint3d endPoint() const;
  void setEndPoint(const OdGePoint3d& point);
  double thickness() const;
  void setThickness(double thickness);
  /// Direction of the extrusion.
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);

  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  /// In the plane of the line that the normal is perpendicular to.
  OdResult getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const override;
  OdDbSchema schema() const override;

protected:
  std::unique_ptr<OdGeCurve3d> makeGeCurve() const override;
};
using OdDbLinePtr = OdSmartPtr<OdDbLine>;
