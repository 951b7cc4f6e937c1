#pragma once
#include "DbAttributeText.h"

class OdDbAttributeDefinition;

/// The value that a reference gives to an attribute of its block, with its own place and form.
class OdDbAttribute : public OdDbAttributeText {
  ODRX_DECLARE_MEMBERS(OdDbAttribute);

public:
  bool isMTextAttribute() const { return isMultiline(); }
  /// The text of several lines, as an entity that belongs to no database; null when the attribute has one
  /// line.
  OdDbMTextPtr getMTextAttribute() const { return multilineText(); }
  /// Takes over text, place and form; an attribute of one line becomes one of several.
  void setMTextAttribute(const OdDbMText* text) { setMultilineText(*text); }
  /// Brings the text of several lines in step with the properties of the attribute.
  void updateMTextAttribute() { updateMultilineText(); }
  /// Turns one line into several or back; going back, line ends become blanks and formatting is lost. Returns
  /// eNotApplicable in drawings of releases that know one line only.
  OdResult convertIntoMTextAttribute(bool multiline = true) { return convert(multiline); }

  /// Takes over everything from a definition, placed as the transform of the reference places it; the value
  /// becomes the definition's default.
  void setAttributeFromBlock(const OdDbAttributeDefinition* definition, const OdGeMatrix3d& blockTransform);

  OdDbSchema schema() const override;

protected:
  const OdDbSubclass& attributeSection() const override;
  int multilineKind() const override;
};
using OdDbAttributePtr = OdSmartPtr<OdDbAttribute>;
