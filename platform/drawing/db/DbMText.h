#pragma once
#include "DbEntity.h"

/// A text of several lines. Points and directions are in world coordinates, angles in radians. The contents
/// hold formatting codes: "\P" ends a line, "{...}" encloses a change of format.
class OdDbMText : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbMText);

public:
  enum AttachmentPoint : int {
    kTopLeft = 1,
    kTopCenter = 2,
    kTopRight = 3,
    kMiddleLeft = 4,
    kMiddleCenter = 5,
    kMiddleRight = 6,
    kBottomLeft = 7,
    kBottomCenter = 8,
    kBottomRight = 9,
  };
  enum FlowDirection : int { kLtoR = 1, kRtoL = 2, kTtoB = 3, kBtoT = 4, kByStyle = 5 };

  /// Where the attachment point lies.
  OdGePoint3d location() const;
  void setLocation(const OdGePoint3d& location);
  /// Of the plane of the text.
  OdGeVector3d normal() const;
  void setNormal(const OdGeVector3d& normal);
  /// Of the lines; a unit vector.
  OdGeVector3d direction() const;
  void setDirection(const OdGeVector3d& direction);
  /// The angle of the direction from the X axis of the text's plane.
  double rotation() const;
  void setRotation(double radians);
  /// The width at which lines are wrapped; 0 for no wrapping.
  double width() const;
  void setWidth(double width);
  double textHeight() const;
  void setTextHeight(double height);
  OdDbObjectId textStyle() const;
  OdString textStyleName() const;
  void setTextStyle(OdDbObjectId style);
  /// For texts that belong to no database; the style must exist in the drawing that the text goes to.
  void setTextStyleName(const OdString& name);
  AttachmentPoint attachment() const;
  void setAttachment(AttachmentPoint attachment);
  FlowDirection flowDirection() const;
  void setFlowDirection(FlowDirection flow);
  /// The attachment as the alignments of a text of one line. Alignments that lines of text cannot have count
  /// as left (align, fit), centred (middle), and bottom (on the base line).
  OdDb::TextHorzMode horizontalMode() const { return horizontalModeOf(attachment()); }
  void setHorizontalMode(OdDb::TextHorzMode mode);
  OdDb::TextVertMode verticalMode() const { return verticalModeOf(attachment()); }
  void setVerticalMode(OdDb::TextVertMode mode);

  OdString contents() const;
  /// Line ends in the text become "\P".
  void setContents(const OdString& contents);
  /// The contents without formatting, in one line: line ends become blanks.
  OdString plainLine() const;

  OdDb::LineSpacingStyle lineSpacingStyle() const;
  void setLineSpacingStyle(OdDb::LineSpacingStyle style);
  /// Factor of the usual distance between lines, 0.25 to 4.
  double lineSpacingFactor() const;
  void setLineSpacingFactor(double factor);

  /// Whether the text hides what lies behind it.
  bool backgroundFillOn() const;
  void setBackgroundFill(bool on);
  /// Whether it does so in the colour of the drawing window.
  bool useBackgroundColorOn() const;
  void setUseBackgroundColor(bool on);
  OdCmColor getBackgroundFillColor() const;
  void setBackgroundFillColor(const OdCmColor& color);
  /// Size of the hidden area, 1 to 5: 1 is the bare text.
  double getBackgroundScaleFactor() const;
  void setBackgroundScaleFactor(double factor);
  OdCmTransparency getBackgroundTransparency() const;
  void setBackgroundTransparency(const OdCmTransparency& transparency);

  /// Also the text style, and the text height, that the drawing gives to new texts.
  void setDatabaseDefaults(OdDbDatabase* database = nullptr) override;
  /// Letters keep their form: what stretches or slants changes their height and the width of the lines only.
  OdResult transformBy(const OdGeMatrix3d& matrix) override;
  /// The size is estimated: the library measures no fonts.
  OdResult getGeomExtents(OdGeExtents3d& extents) const override;
  OdDbSchema schema() const override;

  // --- for the drawing library: multi-line attributes hold the same groups ---
  /// The groups of the text itself, without its columns.
  odDbGroups::Range body() const;
  /// Replaces them by groups of another object.
  void setBody(const OdDbGroupList& from, odDbGroups::Range range);
  static OdDb::TextHorzMode horizontalModeOf(int attachment);
  static OdDb::TextVertMode verticalModeOf(int attachment);

private:
  void updateColumns();
};
using OdDbMTextPtr = OdSmartPtr<OdDbMText>;

/// The text of the groups (3..., 1) of a range; internal to the drawing library.
OdString odDbMTextContents(const OdDbGroupList& groups, odDbGroups::Range range);
/// Text with formatting codes as one line of plain text; internal to the drawing library.
OdString odDbPlainLine(const OdString& contents);
