#include "DbTextStyleTableRecord.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbTextStyleTableRecord, OdDbSymbolTableRecord, "STYLE")

namespace {

enum Code {
  kName = 2,
  kFont = 3,
  kBigFont = 4,
  kSize = 40,
  kXScale = 41,
  kPriorSize = 42,
  kOblique = 50,
  kFlags = 70,
  kMirroring = 71
};
enum Bit { kShapeFileBit = 1, kVerticalBit = 4, kBackwardsBit = 2, kUpsideDownBit = 4 };

constexpr double kDefaultPriorSize = 2.5;
constexpr OdDbField kFields[] = {
    {kName, OdDbFieldKind::kName, true},
    {kFlags, OdDbFieldKind::kInt16, true},
    {kSize, OdDbFieldKind::kReal, true},
    {kXScale, OdDbFieldKind::kReal, true, 1},
    {kOblique, OdDbFieldKind::kAngle, true},
    {kMirroring, OdDbFieldKind::kInt16, true},
    {kPriorSize, OdDbFieldKind::kReal, true, kDefaultPriorSize},
    {kFont, OdDbFieldKind::kString, true, 0, "txt"},
    {kBigFont, OdDbFieldKind::kString, true},
};
const OdDbSubclass kSection{"AcDbTextStyleTableRecord", kFields};
const OdDbSubclass* const kSchema[] = {&kOdDbSymbolTableRecordSection, &kSection};

} // namespace

OdDbSchema OdDbTextStyleTableRecord::schema() const { return kSchema; }

bool OdDbTextStyleTableRecord::isShapeFile() const { return flag(kSection, kFlags, kShapeFileBit); }
OdString OdDbTextStyleTableRecord::fileName() const { return text(kSection, kFont); }
void OdDbTextStyleTableRecord::setFileName(const OdString& name) { setText(kSection, kFont, name); }
OdString OdDbTextStyleTableRecord::bigFontFileName() const { return text(kSection, kBigFont); }
void OdDbTextStyleTableRecord::setBigFontFileName(const OdString& name) { setText(kSection, kBigFont, name); }
double OdDbTextStyleTableRecord::textSize() const { return real(kSection, kSize); }
void OdDbTextStyleTableRecord::setTextSize(double height) { setReal(kSection, kSize, height); }
double OdDbTextStyleTableRecord::priorSize() const { return real(kSection, kPriorSize); }
void OdDbTextStyleTableRecord::setPriorSize(double height) { setReal(kSection, kPriorSize, height); }
double OdDbTextStyleTableRecord::xScale() const { return real(kSection, kXScale); }
void OdDbTextStyleTableRecord::setXScale(double factor) { setReal(kSection, kXScale, factor); }
double OdDbTextStyleTableRecord::obliquingAngle() const { return angle(kSection, kOblique); }
void OdDbTextStyleTableRecord::setObliquingAngle(double radians) { setAngle(kSection, kOblique, radians); }
bool OdDbTextStyleTableRecord::isVertical() const { return flag(kSection, kFlags, kVerticalBit); }
void OdDbTextStyleTableRecord::setIsVertical(bool vertical) {
  setFlag(kSection, kFlags, kVerticalBit, vertical);
}
bool OdDbTextStyleTableRecord::isBackwards() const { return flag(kSection, kMirroring, kBackwardsBit); }
void OdDbTextStyleTableRecord::setIsBackwards(bool backwards) {
  setFlag(kSection, kMirroring, kBackwardsBit, backwards);
}
bool OdDbTextStyleTableRecord::isUpsideDown() const { return flag(kSection, kMirroring, kUpsideDownBit); }
void OdDbTextStyleTableRecord::setIsUpsideDown(bool upsideDown) {
  setFlag(kSection, kMirroring, kUpsideDownBit, upsideDown);
}
