#include "DbLayerTableRecord.h"
#include "DbDatabase.h"
#include "DbLinetypeTableRecord.h"
#include "DbStore.h"
#include <cstdlib>

ODRX_CONS_DEFINE_MEMBERS(OdDbLayerTableRecord, OdDbSymbolTableRecord, "LAYER")

namespace {

enum Code {
  kName = 2,
  kLinetype = 6,
  kColor = 62,
  kFlags = 70,
  kPlottable = 290,
  kLineWeight = 370,
  kPlotStyle = 390,
  kRgb = 420
};
enum Bit { kFrozenBit = 1, kLockedBit = 4 };

constexpr OdDbField kFields[] = {
    {kName, OdDbFieldKind::kName, true},
    {kFlags, OdDbFieldKind::kInt16, true},
    {kColor, OdDbFieldKind::kInt16, true, 7},
    {kRgb, OdDbFieldKind::kInt32},
    {kLinetype, OdDbFieldKind::kName, true, 0, "Continuous"},
    {kPlottable, OdDbFieldKind::kBool, false, 1},
    {kLineWeight, OdDbFieldKind::kInt16, true, OdDb::kLnWtByLwDefault},
    {kPlotStyle, OdDbFieldKind::kObjectId},
};
const OdDbSubclass kSection{"AcDbLayerTableRecord", kFields};
const OdDbSubclass* const kSchema[] = {&kOdDbSymbolTableRecordSection, &kSection};

} // namespace

OdDbSchema OdDbLayerTableRecord::schema() const { return kSchema; }

bool OdDbLayerTableRecord::isFrozen() const { return flag(kSection, kFlags, kFrozenBit); }
void OdDbLayerTableRecord::setIsFrozen(bool frozen) { setFlag(kSection, kFlags, kFrozenBit, frozen); }
bool OdDbLayerTableRecord::isLocked() const { return flag(kSection, kFlags, kLockedBit); }
void OdDbLayerTableRecord::setIsLocked(bool locked) { setFlag(kSection, kFlags, kLockedBit, locked); }
bool OdDbLayerTableRecord::isPlottable() const { return integer(kSection, kPlottable) != 0; }
void OdDbLayerTableRecord::setIsPlottable(bool plottable) {
  setInteger(kSection, kPlottable, plottable ? 1 : 0);
}

// A layer that is off has its colour index stored negative.
bool OdDbLayerTableRecord::isOff() const { return integer(kSection, kColor) < 0; }
void OdDbLayerTableRecord::setIsOff(bool off) {
  const int index = std::abs(integer(kSection, kColor));
  setInteger(kSection, kColor, off ? -index : index);
}

OdCmColor OdDbLayerTableRecord::color() const {
  if (has(kSection, kRgb)) {
    const auto rgb = static_cast<OdUInt32>(integer(kSection, kRgb));
    return OdCmColor::fromRgb(static_cast<OdUInt8>(rgb >> 16), static_cast<OdUInt8>(rgb >> 8),
                              static_cast<OdUInt8>(rgb));
  }
  return OdCmColor::fromIndex(std::abs(integer(kSection, kColor)));
}

void OdDbLayerTableRecord::setColor(const OdCmColor& color) {
  if (color.isByLayer() || color.isByBlock())
    throw OdError(eInvalidInput, L"A layer needs a colour of its own.");
  if (color.colorMethod() == OdCmColor::kByColor) {
    setInteger(kSection, kRgb, color.rgb());
    return;
  }
  removeField(kSection, kRgb);
  setInteger(kSection, kColor, isOff() ? -color.colorIndex() : color.colorIndex());
}

OdDb::LineWeight OdDbLayerTableRecord::lineWeight() const {
  return static_cast<OdDb::LineWeight>(integer(kSection, kLineWeight));
}
void OdDbLayerTableRecord::setLineWeight(OdDb::LineWeight weight) {
  setInteger(kSection, kLineWeight, weight);
}

OdDbObjectId OdDbLayerTableRecord::linetypeObjectId() const {
  if (!database()) return {};
  OdDbStub* table = database()->getLinetypeTableId().stub();
  return OdDbObjectId(database()->store().findRecord(table, text(kSection, kLinetype).str()));
}
void OdDbLayerTableRecord::setLinetypeObjectId(OdDbObjectId linetype) {
  const OdDbLinetypeTableRecordPtr record = linetype.safeOpenObject();
  setText(kSection, kLinetype, record->getName());
}

OdDbObjectId OdDbLayerTableRecord::plotStyleNameId() const { return reference(kSection, kPlotStyle); }
void OdDbLayerTableRecord::setPlotStyleName(OdDbObjectId plotStyle) {
  setReference(kSection, kPlotStyle, plotStyle);
}
