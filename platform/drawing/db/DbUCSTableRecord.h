#pragma once
#include "DbSymbolTableRecord.h"

/// A named user coordinate system, in world coordinates.
class OdDbUCSTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbUCSTableRecord);

public:
  OdGePoint3d origin() const;
  void setOrigin(const OdGePoint3d& origin);
  OdGeVector3d xAxis() const;
  void setXAxis(const OdGeVector3d& axis);
  OdGeVector3d yAxis() const;
  void setYAxis(const OdGeVector3d& axis);

  OdDbSchema schema() const override;
  void appended() override;
};
using OdDbUCSTableRecordPtr = OdSmartPtr<OdDbUCSTableRecord>;
