#pragma once
#include "DbEntity.h"

/// A point entity.
class OdDbPoint : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbPoint);

public:
  OdGePoint3d position() const;
  void setPosition(const OdGePoint3d& position);
  double thickness() const;
  void setThickness(double thickness);
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);
  /// Angle of the mark's X axis, in radians.
  double ecsRotation() const;
  void setEcsRotation(double radians);

  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  OdDbSchema schema() const override;
};
using OdDbPointPtr = OdSmartPtr<OdDbPoint>;
