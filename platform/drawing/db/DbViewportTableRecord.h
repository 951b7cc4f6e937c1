#pragma once
#include "DbSymbolTableRecord.h"

/// A viewport of model space.
class OdDbViewportTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbViewportTableRecord);

public:
  /// In the coordinates of the view plane, as is the height.
  OdGePoint2d centerPoint() const;
  void setCenterPoint(const OdGePoint2d& center);
  double height() const;
  void setHeight(double height);
  /// Stored as a ratio to the height: set the height first, which keeps the ratio. Throws eInvalidInput while
  /// the height is 0.
  double width() const;
  void setWidth(double width);
  /// The point looked at, and the direction from it to the eye, in world coordinates.
  OdGePoint3d target() const;
  void setTarget(const OdGePoint3d& target);
  OdGeVector3d viewDirection() const;
  void setViewDirection(const OdGeVector3d& direction);
  /// Turn of the view about its direction, in radians.
  double viewTwist() const;
  void setViewTwist(double radians);

  OdDbSchema schema() const override;
};
using OdDbViewportTableRecordPtr = OdSmartPtr<OdDbViewportTableRecord>;
