#pragma once
#include "DbMText.h"
#include "DbText.h"

struct OdDbMultilinePart;

/// What attributes and their definitions have in common. Either can be of several lines; then its text,
/// alignment point, alignments and tag are those of the text of several lines, however the drawing stores
/// that, and what is set here is set there too.
class OdDbAttributeText : public OdDbText {
  ODRX_DECLARE_MEMBERS(OdDbAttributeText);

public:
  OdString tag() const;
  void setTag(const OdString& tag);
  bool isInvisible() const;
  void setInvisible(bool invisible);
  /// Its value is the same in all references, which therefore carry no attribute for it.
  bool isConstant() const;
  /// The value is asked for a second time when a reference is made.
  bool isVerifiable() const;
  /// The value is not asked for when a reference is made.
  bool isPreset() const;
  /// The length of the field that a user fills; 0 means any.
  OdUInt16 fieldLength() const;
  void setFieldLength(OdUInt16 length);
  /// Whether it cannot be moved within its reference.
  bool lockPositionInBlock() const;
  /// Drawings before 2007 cannot say so; there it has no effect.
  void setLockPositionInBlock(bool lock);

  /// The value; the whole text with its formatting codes where it has several lines.
  OdString textString() const override;
  void setTextString(const OdString& text) override;
  OdGePoint3d alignmentPoint() const override;
  void setAlignmentPoint(const OdGePoint3d& point) override;
  void setNormal(const OdGeVector3d& normal) override;
  void setRotation(double radians) override;
  void setHeight(double height) override;
  void setTextStyle(OdDbObjectId style) override;
  OdDb::TextHorzMode horizontalMode() const override;
  void setHorizontalMode(OdDb::TextHorzMode mode) override;
  OdDb::TextVertMode verticalMode() const override;
  void setVerticalMode(OdDb::TextVertMode mode) override;

  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  void copyFrom(const OdDbObject* source) override;
  void appended() override { fitToRelease(); }

protected:
  enum ModeBit { kInvisible = 1, kConstant = 2, kVerifiable = 4, kPreset = 8 };
  void setMode(ModeBit bit, bool on);
  /// Takes over everything that a text of one line has.
  void copyTextFrom(const OdDbAttributeText& source);

  bool isMultiline() const;
  /// A text that belongs to no database, of several lines or not; null when the attribute has one line.
  OdDbMTextPtr multilineText() const;
  /// Stores the text, making the attribute one of several lines when it is not.
  void setMultilineText(const OdDbMText& text);
  /// Brings the text of several lines in step with the properties of the attribute.
  void updateMultilineText();
  /// eNotApplicable when the drawing is of a release that knows one line only.
  OdResult convert(bool multiline);

  virtual const OdDbSubclass& attributeSection() const = 0;
  /// What the stored form calls it: see odDbMultiline::Kind.
  virtual int multilineKind() const = 0;
  const OdDbSubclass& verticalModeSection() const override { return attributeSection(); }
  int verticalModeCode() const override;

private:
  enum class Form { kNone, kRecord, kEmbedded };
  Form form() const;
  OdDbMTextPtr textFromLine() const;
  template <class Change>
  void change(const Change& change);
  void storePart(const OdDbMText& text, const OdString& tagText);
  void removePart();
  void embed(const OdDbMText& text);
  void storeLine(const OdDbMText& text);
  void showLine(const OdString& contents);
  void fitToRelease();
  int tagIndex() const;
  int lockIndex() const;
};
