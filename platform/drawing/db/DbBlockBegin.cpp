#include "DbBlockBegin.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbBlockBegin, OdDbEntity, "BLOCK")
ODRX_CONS_DEFINE_MEMBERS(OdDbBlockEnd, OdDbEntity, "ENDBLK")

namespace {

enum Code { kPath = 1, kName = 2, kNameAgain = 3, kComments = 4, kBasePoint = 10, kFlags = 70 };

constexpr OdDbField kFields[] = {
    {kName, OdDbFieldKind::kName, true},         {kFlags, OdDbFieldKind::kInt16, true},
    {kBasePoint, OdDbFieldKind::kPoint3d, true}, {kNameAgain, OdDbFieldKind::kString, true},
    {kPath, OdDbFieldKind::kString, true},       {kComments, OdDbFieldKind::kString},
};
const OdDbSubclass kBeginSection{"AcDbBlockBegin", kFields};
const OdDbSubclass kEndSection{"AcDbBlockEnd", {}};
const OdDbSubclass* const kBeginSchema[] = {&kOdDbEntitySection, &kBeginSection};
const OdDbSubclass* const kEndSchema[] = {&kOdDbEntitySection, &kEndSection};

} // namespace

OdDbSchema OdDbBlockBegin::schema() const { return kBeginSchema; }
OdDbSchema OdDbBlockEnd::schema() const { return kEndSchema; }

OdGePoint3d OdDbBlockBegin::basePoint() const { return point(kBeginSection, kBasePoint); }
void OdDbBlockBegin::setBasePoint(const OdGePoint3d& value) { setPoint(kBeginSection, kBasePoint, value); }
OdString OdDbBlockBegin::comments() const { return text(kBeginSection, kComments); }
void OdDbBlockBegin::setComments(const OdString& comments) { setText(kBeginSection, kComments, comments); }
OdString OdDbBlockBegin::pathName() const { return text(kBeginSection, kPath); }
bool OdDbBlockBegin::hasFlag(Flag bit) const { return flag(kBeginSection, kFlags, bit); }

void OdDbBlockBegin::setBlockName(const OdString& name) {
  setText(kBeginSection, kName, name);
  setText(kBeginSection, kNameAgain, name);
}
