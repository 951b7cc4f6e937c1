#pragma once
#include "DbEntity.h"

/// A straight line between two points.
class OdDbLine : public OdDbEntity {
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
  OdDbSchema schema() const override;
};
using OdDbLinePtr = OdSmartPtr<OdDbLine>;
