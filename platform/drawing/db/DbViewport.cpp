#include "DbViewport.h"
#include "DbDatabase.h"
#include "DbOldView.h"
#include "DbStore.h"
#include <algorithm>

ODRX_CONS_DEFINE_MEMBERS(OdDbViewport, OdDbEntity, "VIEWPORT")

namespace {
enum Code {
  kCenter = 10,
  kWidth = 40,
  kHeight = 41,
  kStatus = 68,
  kNumber = 69,
  kViewCenter = 12,
  kDirection = 16,
  kTarget = 17,
  kLens = 42,
  kViewHeight = 45,
  kTwist = 51,
  kFlags = 90,
  kFrozenSoft = 331,
  kFrozenHard = 341,
};
constexpr int kOffBit = 0x20000;
constexpr OdDbField kFields[] = {
    {kCenter, OdDbFieldKind::kPoint3d, true},        {kWidth, OdDbFieldKind::kReal, true, 1},
    {kHeight, OdDbFieldKind::kReal, true, 1},        {kStatus, OdDbFieldKind::kInt16, true, 1},
    {kNumber, OdDbFieldKind::kInt16, true, 2},       {kViewCenter, OdDbFieldKind::kPoint2d, true},
    {kDirection, OdDbFieldKind::kVector3d, true, 1}, {kTarget, OdDbFieldKind::kPoint3d, true},
    {kLens, OdDbFieldKind::kReal, true, 50},         {kViewHeight, OdDbFieldKind::kReal, true, 1},
    {kTwist, OdDbFieldKind::kAngle, true},           {kFlags, OdDbFieldKind::kInt32, true},
};
const OdDbSubclass kSection{"AcDbViewport", kFields};

/// The view of an old release, where no group of today tells this part of it.
std::optional<OdDbOldView> oldView(const OdDbGroupList& groups, int code) {
  if (odDbGroups::find(groups, kSection, code) >= 0) return {};
  return odDbOldView(groups);
}
} // namespace

OdDbSchema OdDbViewport::schema() const {
  static const OdDbSubclass* const sections[] = {&kOdDbEntitySection, &kSection};
  return sections;
}

int OdDbViewport::number() const { return integer(kSection, kNumber); }
void OdDbViewport::setNumber(int number) { setInteger(kSection, kNumber, number); }

bool OdDbViewport::isOn() const {
  return integer(kSection, kStatus) != 0 && !flag(kSection, kFlags, kOffBit);
}
void OdDbViewport::setOn(bool on) {
  if (on == isOn()) return;
  setFlag(kSection, kFlags, kOffBit, !on);
  setInteger(kSection, kStatus, on ? std::max(1, number()) : 0);
}

OdGePoint3d OdDbViewport::centerPoint() const { return point(kSection, kCenter); }
void OdDbViewport::setCenterPoint(const OdGePoint3d& center) { setPoint(kSection, kCenter, center); }
double OdDbViewport::width() const { return real(kSection, kWidth); }
void OdDbViewport::setWidth(double width) { setReal(kSection, kWidth, width); }
double OdDbViewport::height() const { return real(kSection, kHeight); }
void OdDbViewport::setHeight(double height) { setReal(kSection, kHeight, height); }

OdGePoint3d OdDbViewport::viewTarget() const {
  const auto old = oldView(groups(), kTarget);
  return old ? old->target : point(kSection, kTarget);
}
void OdDbViewport::setViewTarget(const OdGePoint3d& target) { setPoint(kSection, kTarget, target); }
OdGeVector3d OdDbViewport::viewDirection() const {
  const auto old = oldView(groups(), kDirection);
  return old ? old->direction : vector(kSection, kDirection);
}
void OdDbViewport::setViewDirection(const OdGeVector3d& direction) {
  setVector(kSection, kDirection, direction);
}
OdGePoint2d OdDbViewport::viewCenter() const {
  const auto old = oldView(groups(), kViewCenter);
  return old ? old->center : point(kSection, kViewCenter).convert2d();
}
void OdDbViewport::setViewCenter(const OdGePoint2d& center) {
  setReal(kSection, kViewCenter, center.x);
  OdDbGroupList& list = mutableGroups();
  const int at = odDbGroups::find(list, kSection, kViewCenter) + 1;
  const OdDbGroup second = OdDbGroup::ofReal(kViewCenter + 10, center.y);
  if (at < list.size() && list[at].code == second.code)
    list[at] = second;
  else
    list.insert(at, second);
}
double OdDbViewport::viewHeight() const {
  const auto old = oldView(groups(), kViewHeight);
  return old ? old->height : real(kSection, kViewHeight);
}
void OdDbViewport::setViewHeight(double height) { setReal(kSection, kViewHeight, height); }
double OdDbViewport::twistAngle() const {
  const auto old = oldView(groups(), kTwist);
  return old ? old->twist : angle(kSection, kTwist);
}
void OdDbViewport::setTwistAngle(double radians) { setAngle(kSection, kTwist, radians); }

std::vector<OdDbObjectId> OdDbViewport::frozenLayers() const {
  std::vector<OdDbObjectId> frozen;
  OdDbStore& store = database()->store();
  for (const OdDbGroup& group : groups().items)
    if (group.code == kFrozenSoft || group.code == kFrozenHard)
      frozen.push_back(database()->getOdDbObjectId(group.handle));
  if (const auto old = oldView(groups(), kViewHeight))
    for (const OdString& name : old->frozenLayers)
      frozen.emplace_back(store.findRecord(store.table("LAYER"), name.str()));
  return frozen;
}

OdResult OdDbViewport::transformBy(const OdGeMatrix3d& matrix) {
  assertWriteEnabled();
  if (matrix.isSingular()) return eNonInvertibleMatrix;
  const OdGeVector3d x = matrix.getCsXAxis();
  const OdGeVector3d y = matrix.getCsYAxis();
  if (!x.isCodirectionalTo(OdGeVector3d::kXAxis) || !y.isCodirectionalTo(OdGeVector3d::kYAxis))
    return eCannotScaleNonUniformly;
  setCenterPoint(matrix * centerPoint());
  setWidth(width() * x.length());
  setHeight(height() * y.length());
  return eOk;
}

OdResult OdDbViewport::getGeomExtents(OdGeExtents3d& extents) const {
  const OdGeVector3d half(width() / 2, height() / 2, 0);
  extents = OdGeExtents3d(centerPoint() - half, centerPoint() + half);
  return eOk;
}
