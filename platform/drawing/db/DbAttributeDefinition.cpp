#include "DbAttributeDefinition.h"
#include "DbMultilinePart.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbAttributeDefinition, OdDbAttributeText, "ATTDEF")

namespace {
enum Code { kVersion = 280, kPrompt = 3, kTag = 2, kModes = 70, kFieldLength = 73, kVertical = 74 };
constexpr OdDbField kFields[] = {
    {kVersion, OdDbFieldKind::kInt16, true}, {kPrompt, OdDbFieldKind::kString, true},
    {kTag, OdDbFieldKind::kString, true},    {kModes, OdDbFieldKind::kInt16, true},
    {kFieldLength, OdDbFieldKind::kInt16},   {kVertical, OdDbFieldKind::kInt16},
};
const OdDbSubclass kSection{"AcDbAttributeDefinition", kFields};
} // namespace

OdDbSchema OdDbAttributeDefinition::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kOdDbTextSection, &kSection};
  return sections;
}

const OdDbSubclass& OdDbAttributeDefinition::attributeSection() const { return kSection; }
int OdDbAttributeDefinition::multilineKind() const { return odDbMultiline::kDefinition; }

OdString OdDbAttributeDefinition::prompt() const { return text(kSection, kPrompt); }
void OdDbAttributeDefinition::setPrompt(const OdString& prompt) { setText(kSection, kPrompt, prompt); }
