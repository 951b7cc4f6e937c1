#include "DbLinetypeTableRecord.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbLinetypeTableRecord, OdDbSymbolTableRecord, "LTYPE")

namespace {

enum Code { kName = 2, kComments = 3, kLength = 40, kDash = 49, kFlags = 70, kAlignment = 72, kDashes = 73 };
constexpr int kAlignmentAlwaysStored = 'A';

constexpr OdDbField kFields[] = {
    {kName, OdDbFieldKind::kName, true},
    {kFlags, OdDbFieldKind::kInt16, true},
    {kComments, OdDbFieldKind::kString, true},
    {kAlignment, OdDbFieldKind::kInt16, true, kAlignmentAlwaysStored},
    {kDashes, OdDbFieldKind::kInt16, true},
    {kLength, OdDbFieldKind::kReal, true},
};
const OdDbSubclass kSection{"AcDbLinetypeTableRecord", kFields};
const OdDbSubclass* const kSchema[] = {&kOdDbSymbolTableRecordSection, &kSection};

} // namespace

OdDbSchema OdDbLinetypeTableRecord::schema() const { return kSchema; }

OdString OdDbLinetypeTableRecord::comments() const { return text(kSection, kComments); }
void OdDbLinetypeTableRecord::setComments(const OdString& comments) {
  setText(kSection, kComments, comments);
}
double OdDbLinetypeTableRecord::patternLength() const { return real(kSection, kLength); }
int OdDbLinetypeTableRecord::numDashes() const { return integer(kSection, kDashes); }

double OdDbLinetypeTableRecord::dashLengthAt(int index) const {
  const int at = index < 0 ? -1 : odDbGroups::find(groups(), kSection, kDash, index);
  if (at < 0) throw OdError_InvalidIndex();
  return groups()[at].real;
}
