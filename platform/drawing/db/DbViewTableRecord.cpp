#include "DbViewTableRecord.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbViewTableRecord, OdDbSymbolTableRecord, "VIEW")

namespace {

enum Code {
  kName = 2,
  kCenter = 10,
  kDirection = 11,
  kTarget = 12,
  kHeight = 40,
  kWidth = 41,
  kLens = 42,
  kTwist = 50,
  kFlags = 70,
  kMode = 71
};
constexpr double kDefaultLens = 50; // millimetres

constexpr OdDbField kFields[] = {
    {kName, OdDbFieldKind::kName, true},      {kFlags, OdDbFieldKind::kInt16, true},
    {kHeight, OdDbFieldKind::kReal, true, 1}, {kCenter, OdDbFieldKind::kPoint2d, true},
    {kWidth, OdDbFieldKind::kReal, true, 1},  {kDirection, OdDbFieldKind::kVector3d, true, 1},
    {kTarget, OdDbFieldKind::kPoint3d, true}, {kLens, OdDbFieldKind::kReal, true, kDefaultLens},
    {kTwist, OdDbFieldKind::kAngle, true},    {kMode, OdDbFieldKind::kInt16, true},
};
const OdDbSubclass kSection{"AcDbViewTableRecord", kFields};
const OdDbSubclass* const kSchema[] = {&kOdDbSymbolTableRecordSection, &kSection};

} // namespace

OdDbSchema OdDbViewTableRecord::schema() const { return kSchema; }

OdGePoint2d OdDbViewTableRecord::centerPoint() const { return point(kSection, kCenter).convert2d(); }
double OdDbViewTableRecord::height() const { return real(kSection, kHeight); }
double OdDbViewTableRecord::width() const { return real(kSection, kWidth); }
OdGePoint3d OdDbViewTableRecord::target() const { return point(kSection, kTarget); }
OdGeVector3d OdDbViewTableRecord::viewDirection() const { return vector(kSection, kDirection); }
double OdDbViewTableRecord::viewTwist() const { return angle(kSection, kTwist); }
