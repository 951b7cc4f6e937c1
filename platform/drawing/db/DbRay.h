#pragma once
#include "DbCurve.h"

/// What rays and construction lines have in common: a base point and a direction. They have no extents.
class OdDbEndlessLine : public OdDbCurve {
  ODRX_DECLARE_MEMBERS(OdDbEndlessLine);

public:
  OdGePoint3d basePoint() const;
  void setBasePoint(const OdGePoint3d& point);
  /// Of unit length, whatever is stored or given. Setting throws OdError(eDegenerateGeometry) for the zero
  /// vector; a damaged drawing can hold one, which is returned as it is.
  OdGeVector3d unitDir() const;
  void setUnitDir(const OdGeVector3d& direction);

  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getOffsetCurves(double distance, OdRxObjectPtrArray& curves) const override;

protected:
  virtual const OdDbSubclass& section() const = 0;
};

/// A line that begins at its base point and has no end. Its parameter is the distance from the base point.
class OdDbRay : public OdDbEndlessLine {
  ODRX_DECLARE_MEMBERS(OdDbRay);

public:
  OdDbSchema schema() const override;

protected:
  const OdDbSubclass& section() const override;
  std::unique_ptr<OdGeCurve3d> makeGeCurve() const override;
};
using OdDbRayPtr = OdSmartPtr<OdDbRay>;
