#pragma once
#include "DbEntity.h"

namespace odDbOcs {
struct Image;
}

/// The section of texts, attributes and attribute definitions.
extern const OdDbSubclass kOdDbTextSection;

/// A text of one line. Points are in world coordinates, angles in radians.
class OdDbText : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbText);

public:
  /// Start of the base line. It places the text only while that is left aligned on the base line; then, and
  /// for aligned and fitted texts, it is exact. Otherwise it follows from the alignment point, see
  /// adjustAlignment().
  OdGePoint3d position() const;
  virtual void setPosition(const OdGePoint3d& position);
  /// What places the text in all other alignments (the end of the base line of aligned and fitted texts); the
  /// origin where the text has none.
  virtual OdGePoint3d alignmentPoint() const;
  virtual void setAlignmentPoint(const OdGePoint3d& point);
  /// Works out the position from the alignment point, for readers that do not know fonts. Widths are
  /// estimated.
  void adjustAlignment(OdDbDatabase* database = nullptr);

  /// Of the plane of the text. Setting it leaves the points where they are.
  OdGeVector3d normal() const;
  virtual void setNormal(const OdGeVector3d& normal);
  double thickness() const;
  void setThickness(double thickness);
  /// Of the base line, from the X axis of the text's plane.
  double rotation() const;
  virtual void setRotation(double radians);
  /// Slant of the characters from upright, to the right when positive.
  double oblique() const;
  void setOblique(double radians);
  double height() const;
  virtual void setHeight(double height);
  double widthFactor() const;
  void setWidthFactor(double factor);

  virtual OdString textString() const;
  virtual void setTextString(const OdString& text);
  OdDbObjectId textStyle() const;
  OdString textStyleName() const;
  virtual void setTextStyle(OdDbObjectId style);
  /// For texts that belong to no database; the style must exist in the drawing that the text goes to.
  void setTextStyleName(const OdString& name);

  virtual OdDb::TextHorzMode horizontalMode() const;
  virtual void setHorizontalMode(OdDb::TextHorzMode mode);
  virtual OdDb::TextVertMode verticalMode() const;
  virtual void setVerticalMode(OdDb::TextVertMode mode);
  bool isDefaultAlignment() const {
    return horizontalMode() == OdDb::kTextLeft && verticalMode() == OdDb::kTextBase;
  }

  /// Backwards.
  bool isMirroredInX() const;
  void mirrorInX(bool mirror);
  /// Upside down.
  bool isMirroredInY() const;
  void mirrorInY(bool mirror);

  /// Also the text style, and the text height, that the drawing gives to new texts.
  void setDatabaseDefaults(OdDbDatabase* database = nullptr) override;
  /// Any transformation that keeps the plane a plane: what stretches or slants goes into height, width factor
  /// and oblique angle; what mirrors makes the text backwards.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  /// The width is estimated: the library measures no fonts.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  OdDbSchema schema() const override;

protected:
  /// The section and code that hold the vertical alignment.
  virtual const OdDbSubclass& verticalModeSection() const;
  virtual int verticalModeCode() const;

private:
  double estimatedWidth() const;
  /// From the start of the base line to the alignment point, in the text's own directions.
  OdGeVector2d anchorOffset() const;
  /// A point of the text, given along the base line and upwards from `position()`.
  OdGePoint3d at(double along, double up) const;
  void needAlignmentPoint();
  void moveBy(const OdGeMatrix3d& matrix, const odDbOcs::Image& image);
};
using OdDbTextPtr = OdSmartPtr<OdDbText>;
