#include "DbLayout.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbStore.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbLayout, OdDbObject, "LAYOUT")

namespace {

enum Code {
  kName = 1,
  kFlags = 70,
  kTabOrder = 71,
  kMinLimits = 10,
  kMaxLimits = 11,
  kInsertion = 12,
  kUcsOrigin = 13,
  kMinExtents = 14,
  kMaxExtents = 15,
  kElevation = 146,
  kOrthographic = 76,
  kBlock = 330,
  kViewport = 331
};
constexpr int kPageModelBit = 1024;
constexpr double kNoExtents = 1e20;

constexpr OdDbField kPlotFields[] = {
    {1, OdDbFieldKind::kString, true},          {2, OdDbFieldKind::kString, true, 0, "none_device"},
    {4, OdDbFieldKind::kString, true},          {6, OdDbFieldKind::kString, true},
    {40, OdDbFieldKind::kReal, true},           {41, OdDbFieldKind::kReal, true},
    {42, OdDbFieldKind::kReal, true},           {43, OdDbFieldKind::kReal, true},
    {44, OdDbFieldKind::kReal, true},           {45, OdDbFieldKind::kReal, true},
    {46, OdDbFieldKind::kReal, true},           {47, OdDbFieldKind::kReal, true},
    {48, OdDbFieldKind::kReal, true},           {49, OdDbFieldKind::kReal, true},
    {140, OdDbFieldKind::kReal, true},          {141, OdDbFieldKind::kReal, true},
    {142, OdDbFieldKind::kReal, true, 1},       {143, OdDbFieldKind::kReal, true, 1},
    {kFlags, OdDbFieldKind::kInt16, true, 688}, {72, OdDbFieldKind::kInt16, true},
    {73, OdDbFieldKind::kInt16, true},          {74, OdDbFieldKind::kInt16, true, 5},
    {7, OdDbFieldKind::kString, true},          {75, OdDbFieldKind::kInt16, true, 16},
    {147, OdDbFieldKind::kReal, true, 1},       {148, OdDbFieldKind::kReal, true},
    {149, OdDbFieldKind::kReal, true},
};
constexpr OdDbField kFields[] = {
    {kName, OdDbFieldKind::kString, true},
    {kFlags, OdDbFieldKind::kInt16, true, 1},
    {kTabOrder, OdDbFieldKind::kInt16, true},
    {kMinLimits, OdDbFieldKind::kPoint2d, true},
    {kMaxLimits, OdDbFieldKind::kPoint2d, true},
    {kInsertion, OdDbFieldKind::kPoint3d, true},
    {kMinExtents, OdDbFieldKind::kPoint3d, false, kNoExtents},
    {kMaxExtents, OdDbFieldKind::kPoint3d, false, -kNoExtents},
    {kElevation, OdDbFieldKind::kReal, true},
    {kUcsOrigin, OdDbFieldKind::kPoint3d, true},
    {kOrthographic, OdDbFieldKind::kInt16, true},
    {kBlock, OdDbFieldKind::kObjectId, true},
    {kViewport, OdDbFieldKind::kObjectId},
};
const OdDbSubclass kPlotSection{"AcDbPlotSettings", kPlotFields};
const OdDbSubclass kSection{"AcDbLayout", kFields};
const OdDbSubclass* const kSchema[] = {&kPlotSection, &kSection};

const OdDbSubclass kViewportSection{"AcDbViewport", {}};
constexpr int kViewportNumber = 69;
constexpr int kSheetNumber = 1;

bool isSheet(const OdDbStub* viewport) {
  const OdDbGroupListPtr groups = viewport->content();
  const int number = odDbGroups::find(*groups, kViewportSection, kViewportNumber);
  return number >= 0 && (*groups)[number].integer == kSheetNumber;
}

} // namespace

OdDbSchema OdDbLayout::schema() const { return kSchema; }

OdString OdDbLayout::getLayoutName() const { return text(kSection, kName); }

void OdDbLayout::setLayoutName(const OdString& name) {
  assertWriteEnabled();
  if (name.isEmpty()) throw OdError(eInvalidInput, L"A layout needs a name.");
  const OdDbDictionaryPtr layouts = OdDbDictionary::cast(ownerId().openObject(OdDb::kForWrite));
  if (!layouts.isNull() && layouts->has(objectId())) layouts->setName(layouts->nameAt(objectId()), name);
  setText(kSection, kName, name);
}

OdDbObjectId OdDbLayout::getBlockTableRecordId() const { return reference(kSection, kBlock); }
void OdDbLayout::setBlockTableRecordId(OdDbObjectId block) { setReference(kSection, kBlock, block); }
int OdDbLayout::getTabOrder() const { return integer(kSection, kTabOrder); }
void OdDbLayout::setTabOrder(int order) { setInteger(kSection, kTabOrder, order); }

bool OdDbLayout::modelType() const {
  const OdDbObjectId block = getBlockTableRecordId();
  if (block.isNull() || !database()) return flag(kPlotSection, kFlags, kPageModelBit);
  return block == database()->getModelSpaceId();
}

OdDbObjectIdArray OdDbLayout::getViewportArray() const { return odDbViewportsOf(getBlockTableRecordId()); }
OdDbObjectId OdDbLayout::overallVportId() const { return odDbSheetViewportOf(getBlockTableRecordId()); }

OdDbObjectIdArray odDbViewportsOf(OdDbObjectId block) {
  OdDbObjectIdArray viewports;
  const OdDbStub* record = block.stub();
  for (OdDbStub* entity = record && record->children ? record->children->first : nullptr; entity;
       entity = entity->next)
    if (entity->dxfName() == "VIEWPORT" && !entity->isErased()) viewports.append(OdDbObjectId(entity));
  return viewports;
}

OdDbObjectId odDbSheetViewportOf(OdDbObjectId block) {
  const OdDbObjectIdArray viewports = odDbViewportsOf(block);
  for (const OdDbObjectId& viewport : viewports)
    if (isSheet(viewport.stub())) return viewport;
  return viewports.isEmpty() ? OdDbObjectId() : viewports.first();
}
