#pragma once
#include "DbSymbolTableRecord.h"

/// A named view.
class OdDbViewTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbViewTableRecord);

public:
  /// In the coordinates of the view plane, as are height and width.
  OdGePoint2d centerPoint() const;
  double height() const;
  double width() const;
  /// The point looked at, and the direction from it to the eye, in world coordinates.
  OdGePoint3d target() const;
  OdGeVector3d viewDirection() const;
  /// Turn of the view about its direction, in radians.
  double viewTwist() const;

  OdDbSchema schema() const override;
};
using OdDbViewTableRecordPtr = OdSmartPtr<OdDbViewTableRecord>;
