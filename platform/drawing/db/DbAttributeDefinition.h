#pragma once
#include "DbAttributeText.h"

/// The definition of an attribute in a block: where references show it, and what they ask for. Its text is
/// the default value.
class OdDbAttributeDefinition : public OdDbAttributeText {
  ODRX_DECLARE_MEMBERS(OdDbAttributeDefinition);

public:
  OdString prompt() const;
  void setPrompt(const OdString& prompt);
  void setConstant(bool constant) { setMode(kConstant, constant); }
  void setVerifiable(bool verifiable) { setMode(ModeBit::kVerifiable, verifiable); }
  void setPreset(bool preset) { setMode(ModeBit::kPreset, preset); }

  bool isMTextAttributeDefinition() const { return isMultiline(); }
  /// The text of several lines, as an entity that belongs to no database; null when the definition has one
  /// line.
  OdDbMTextPtr getMTextAttributeDefinition() const { return multilineText(); }
  /// Takes over text, place and form; a definition of one line becomes one of several.
  void setMTextAttributeDefinition(const OdDbMText* text) { setMultilineText(*text); }
  /// Brings the text of several lines in step with the properties of the definition.
  void updateMTextAttributeDefinition() { updateMultilineText(); }
  /// Turns one line into several or back; going back, line ends become blanks and formatting is lost. Returns
  /// eNotApplicable in drawings of releases that know one line only.
  OdResult convertIntoMTextAttributeDefinition(bool multiline = true) { return convert(multiline); }

  OdDbSchema schema() const override;

protected:
  const OdDbSubclass& attributeSection() const override;
  int multilineKind() const override;
};
using OdDbAttributeDefinitionPtr = OdSmartPtr<OdDbAttributeDefinition>;
