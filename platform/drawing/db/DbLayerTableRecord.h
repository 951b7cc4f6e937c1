#pragma once
#include "CmColor.h"
#include "DbSymbolTableRecord.h"

/// A layer.
class OdDbLayerTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbLayerTableRecord);

public:
  bool isFrozen() const;
  void setIsFrozen(bool frozen);
  bool isOff() const;
  void setIsOff(bool off);
  bool isLocked() const;
  void setIsLocked(bool locked);
  bool isPlottable() const;
  void setIsPlottable(bool plottable);
  /// A palette index or an RGB colour. Files have no layers coloured by layer or block: setting one throws
  /// eInvalidInput.
  OdCmColor color() const;
  void setColor(const OdCmColor& color);
  int colorIndex() const { return color().colorIndex(); }
  void setColorIndex(int index) { setColor(OdCmColor::fromIndex(index)); }
  OdDb::LineWeight lineWeight() const;
  void setLineWeight(OdDb::LineWeight weight);
  /// Null when the drawing has no linetype of that name.
  OdDbObjectId linetypeObjectId() const;
  void setLinetypeObjectId(OdDbObjectId linetype);
  /// The plot style, an entry of the drawing's dictionary of plot style names; null in old drawings.
  OdDbObjectId plotStyleNameId() const;
  void setPlotStyleName(OdDbObjectId plotStyle);

  OdDbSchema schema() const override;
};
using OdDbLayerTableRecordPtr = OdSmartPtr<OdDbLayerTableRecord>;
