#include "DbUCSTableRecord.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbUCSTableRecord, OdDbSymbolTableRecord, "UCS")

namespace {

enum Code {
  kName = 2,
  kOrigin = 10,
  kXAxis = 11,
  kYAxis = 12,
  kFlags = 70,
  kOrthographic = 79,
  kElevation = 146
};

constexpr OdDbField kFields[] = {
    {kName, OdDbFieldKind::kName, true},      {kFlags, OdDbFieldKind::kInt16, true},
    {kOrigin, OdDbFieldKind::kPoint3d, true}, {kXAxis, OdDbFieldKind::kVector3d},
    {kYAxis, OdDbFieldKind::kVector3d},       {kOrthographic, OdDbFieldKind::kInt16, true},
    {kElevation, OdDbFieldKind::kReal, true},
};
const OdDbSubclass kSection{"AcDbUCSTableRecord", kFields};
const OdDbSubclass* const kSchema[] = {&kOdDbSymbolTableRecordSection, &kSection};

} // namespace

OdDbSchema OdDbUCSTableRecord::schema() const { return kSchema; }

OdGePoint3d OdDbUCSTableRecord::origin() const { return point(kSection, kOrigin); }
void OdDbUCSTableRecord::setOrigin(const OdGePoint3d& origin) { setPoint(kSection, kOrigin, origin); }
void OdDbUCSTableRecord::appended() {
  setXAxis(xAxis());
  setYAxis(yAxis());
}

// Axes that are not stored, or have no direction, stand for those of the world.
OdGeVector3d OdDbUCSTableRecord::xAxis() const {
  const OdGeVector3d axis = vector(kSection, kXAxis);
  return axis.isZeroLength() ? OdGeVector3d::kXAxis : axis;
}
void OdDbUCSTableRecord::setXAxis(const OdGeVector3d& axis) { setVector(kSection, kXAxis, axis); }
OdGeVector3d OdDbUCSTableRecord::yAxis() const {
  const OdGeVector3d axis = vector(kSection, kYAxis);
  return axis.isZeroLength() ? OdGeVector3d::kYAxis : axis;
}
void OdDbUCSTableRecord::setYAxis(const OdGeVector3d& axis) { setVector(kSection, kYAxis, axis); }
