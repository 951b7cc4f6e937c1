#pragma once
#include "DbEntity.h"
#include "Ge/GePoint3dArray.h"

/// A raster image placed in the drawing: a rectangle, of which a polygon may be shown only.
class OdDbRasterImage : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbRasterImage);

public:
  /// What is shown at all, what is shown when it is turned, whether it is clipped to the polygon, whether
  /// pixels of the background let through what is behind them.
  enum ImageDisplayOpt { kShow = 1, kShowUnAligned = 2, kClip = 4, kTransparent = 8 };
  bool isSetDisplayOpt(ImageDisplayOpt option) const;
  void setDisplayOpt(ImageDisplayOpt option, bool on);
  /// The rectangle: a corner and the sides from there.
  void getOrientation(OdGePoint3d& origin, OdGeVector3d& u, OdGeVector3d& v) const;
  /// The edge of what is shown in world coordinates, with its first point repeated at the end: the polygon
  /// or, when it is not clipped, the rectangle.
  void outline(OdGePoint3dArray& points) const;

  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  OdDbSchema schema() const override;

protected:
  virtual const OdDbSubclass& section() const;
};
using OdDbRasterImagePtr = OdSmartPtr<OdDbRasterImage>;
