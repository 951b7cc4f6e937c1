#include "DbDimStyleTableRecord.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbDimStyleTableRecord, OdDbSymbolTableRecord, "DIMSTYLE")

namespace {

/// Records of this one table store their handle here: 5 was taken by a setting.
constexpr int kHandleCode = 105;
constexpr OdDbField kFields[] = {{2, OdDbFieldKind::kName, true}, {70, OdDbFieldKind::kInt16, true}};
const OdDbSubclass kSection{"AcDbDimStyleTableRecord", kFields};
const OdDbSubclass* const kSchema[] = {&kOdDbSymbolTableRecordSection, &kSection};

} // namespace

OdDbSchema OdDbDimStyleTableRecord::schema() const { return kSchema; }

void OdDbDimStyleTableRecord::appended() {
  for (OdDbGroup& group : mutableGroups().items)
    if (group.flags & OdDbGroup::kOwnHandle) group.code = kHandleCode;
}
