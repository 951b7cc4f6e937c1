#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbMultilinePart.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbAttribute, OdDbAttributeText, "ATTRIB")

namespace {
enum Code { kVersion = 280, kTag = 2, kModes = 70, kFieldLength = 73, kVertical = 74 };
constexpr OdDbField kFields[] = {
    {kVersion, OdDbFieldKind::kInt16, true}, {kTag, OdDbFieldKind::kString, true},
    {kModes, OdDbFieldKind::kInt16, true},   {kFieldLength, OdDbFieldKind::kInt16},
    {kVertical, OdDbFieldKind::kInt16},
};
const OdDbSubclass kSection{"AcDbAttribute", kFields};
} // namespace

OdDbSchema OdDbAttribute::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kOdDbTextSection, &kSection};
  return sections;
}

const OdDbSubclass& OdDbAttribute::attributeSection() const { return kSection; }
int OdDbAttribute::multilineKind() const { return odDbMultiline::kAttribute; }

void OdDbAttribute::setAttributeFromBlock(const OdDbAttributeDefinition* definition,
                                          const OdGeMatrix3d& blockTransform) {
  assertWriteEnabled();
  if (!definition->isMTextAttributeDefinition()) convert(false);
  copyTextFrom(*definition);
  if (const OdDbMTextPtr lines = definition->getMTextAttributeDefinition(); !lines.isNull())
    setMultilineText(*lines);
  else
    setTextString(definition->textString());
  transformBy(blockTransform);
}
