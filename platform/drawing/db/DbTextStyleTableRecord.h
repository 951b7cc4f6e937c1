#pragma once
#include "DbSymbolTableRecord.h"

/// A text style, or a file of shapes (which has no name).
class OdDbTextStyleTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbTextStyleTableRecord);

public:
  bool isShapeFile() const;
  /// The font file, and the one for characters beyond its reach (may be empty).
  OdString fileName() const;
  void setFileName(const OdString& name);
  OdString bigFontFileName() const;
  void setBigFontFileName(const OdString& name);
  /// The fixed text height in drawing units; 0 when every text chooses its own.
  double textSize() const;
  void setTextSize(double height);
  /// The height that was last given to a text of this style.
  double priorSize() const;
  void setPriorSize(double height);
  /// Width factor.
  double xScale() const;
  void setXScale(double factor);
  /// Slant of the characters in radians.
  double obliquingAngle() const;
  void setObliquingAngle(double radians);
  bool isVertical() const;
  void setIsVertical(bool vertical);
  bool isBackwards() const;
  void setIsBackwards(bool backwards);
  bool isUpsideDown() const;
  void setIsUpsideDown(bool upsideDown);

  OdDbSchema schema() const override;
};
using OdDbTextStyleTableRecordPtr = OdSmartPtr<OdDbTextStyleTableRecord>;
