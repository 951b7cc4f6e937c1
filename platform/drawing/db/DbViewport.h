#pragma once
#include "DbEntity.h"
#include "Ge/GePoint2d.h"

/// A window in a layout through which model space is seen. Number 1 is the layout's own sheet.
class OdDbViewport : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbViewport);

public:
  int number() const;
  void setNumber(int number);
  bool isOn() const;
  void setOn(bool on);
  /// Place and size on the sheet.
  OdGePoint3d centerPoint() const;
  void setCenterPoint(const OdGePoint3d& center);
  double width() const;
  void setWidth(double width);
  double height() const;
  void setHeight(double height);

  /// What is seen: the target and the direction towards the eye in world coordinates; the centre and the
  /// height of the view in view coordinates; its turn about the direction in radians. Viewports of releases
  /// before 2000 hold all this in their extended data; once one of them is set, it stands in its own group.
  OdGePoint3d viewTarget() const;
  void setViewTarget(const OdGePoint3d& target);
  OdGeVector3d viewDirection() const;
  void setViewDirection(const OdGeVector3d& direction);
  OdGePoint2d viewCenter() const;
  void setViewCenter(const OdGePoint2d& center);
  double viewHeight() const;
  void setViewHeight(double height);
  double twistAngle() const;
  void setTwistAngle(double radians);
  /// The layers that are not shown in this viewport alone.
  std::vector<OdDbObjectId> frozenLayers() const;
  /// Sheet units per drawing unit.
  double customScale() const { return viewHeight() > 0 ? height() / viewHeight() : 0; }

  /// Refuses all but moving and scaling, because a window keeps its sides along the sheet's.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  OdDbSchema schema() const override;
};
using OdDbViewportPtr = OdSmartPtr<OdDbViewport>;
