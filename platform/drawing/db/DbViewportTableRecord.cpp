#include "DbViewportTableRecord.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbViewportTableRecord, OdDbSymbolTableRecord, "VPORT")

namespace {

enum Code {
  kName = 2,
  kLowerLeft = 10,
  kUpperRight = 11,
  kCenter = 12,
  kDirection = 16,
  kTarget = 17,
  kHeight = 40,
  kAspect = 41,
  kLens = 42,
  kTwist = 51,
  kFlags = 70,
  kMode = 71,
  kZoomPercent = 72
};
constexpr double kDefaultLens = 50; // millimetres
constexpr double kDefaultZoomPercent = 1000;

constexpr OdDbField kFields[] = {
    {kName, OdDbFieldKind::kName, true},
    {kFlags, OdDbFieldKind::kInt16, true},
    {kLowerLeft, OdDbFieldKind::kPoint2d},
    {kUpperRight, OdDbFieldKind::kPoint2d},
    {kCenter, OdDbFieldKind::kPoint2d, true},
    {kDirection, OdDbFieldKind::kVector3d, true, 1},
    {kTarget, OdDbFieldKind::kPoint3d, true},
    {kHeight, OdDbFieldKind::kReal, true, 1},
    {kAspect, OdDbFieldKind::kReal, true, 1},
    {kLens, OdDbFieldKind::kReal, true, kDefaultLens},
    {kTwist, OdDbFieldKind::kAngle, true},
    {kMode, OdDbFieldKind::kInt16, true},
    {kZoomPercent, OdDbFieldKind::kInt16, true, kDefaultZoomPercent},
};
const OdDbSubclass kSection{"AcDbViewportTableRecord", kFields};
const OdDbSubclass* const kSchema[] = {&kOdDbSymbolTableRecordSection, &kSection};

} // namespace

OdDbSchema OdDbViewportTableRecord::schema() const { return kSchema; }

OdGePoint2d OdDbViewportTableRecord::centerPoint() const { return point(kSection, kCenter).convert2d(); }
void OdDbViewportTableRecord::setCenterPoint(const OdGePoint2d& center) {
  setReal(kSection, kCenter, center.x);
  setReal(kSection, kCenter + 10, center.y);
}
double OdDbViewportTableRecord::height() const { return real(kSection, kHeight); }
void OdDbViewportTableRecord::setHeight(double height) { setReal(kSection, kHeight, height); }
double OdDbViewportTableRecord::width() const { return height() * real(kSection, kAspect); }
void OdDbViewportTableRecord::setWidth(double width) {
  if (!(height() > 0)) throw OdError(eInvalidInput, L"A viewport without height has no width.");
  setReal(kSection, kAspect, width / height());
}
OdGePoint3d OdDbViewportTableRecord::target() const { return point(kSection, kTarget); }
void OdDbViewportTableRecord::setTarget(const OdGePoint3d& target) { setPoint(kSection, kTarget, target); }
OdGeVector3d OdDbViewportTableRecord::viewDirection() const { return vector(kSection, kDirection); }
void OdDbViewportTableRecord::setViewDirection(const OdGeVector3d& direction) {
  setVector(kSection, kDirection, direction);
}
double OdDbViewportTableRecord::viewTwist() const { return angle(kSection, kTwist); }
void OdDbViewportTableRecord::setViewTwist(double radians) { setAngle(kSection, kTwist, radians); }
