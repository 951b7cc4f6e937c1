#include "DbRegAppTableRecord.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbRegAppTableRecord, OdDbSymbolTableRecord, "APPID")

namespace {

constexpr OdDbField kFields[] = {{2, OdDbFieldKind::kName, true}, {70, OdDbFieldKind::kInt16, true}};
const OdDbSubclass kSection{"AcDbRegAppTableRecord", kFields};
const OdDbSubclass* const kSchema[] = {&kOdDbSymbolTableRecordSection, &kSection};

} // namespace

OdDbSchema OdDbRegAppTableRecord::schema() const { return kSchema; }
