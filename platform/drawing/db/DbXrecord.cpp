#include "DbXrecord.h"
#include "DbResBufGroups.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbXrecord, OdDbObject, "XRECORD")

namespace {

constexpr int kMarkerCode = 100;
constexpr int kMergeStyleCode = 280;
constexpr OdDbField kFields[] = {{kMergeStyleCode, OdDbFieldKind::kInt16, true, 1}};
const OdDbSubclass kSection{"AcDbXrecord", kFields};
const OdDbSubclass* const kSchema[] = {&kSection};

} // namespace

OdDbSchema OdDbXrecord::schema() const { return kSchema; }

odDbGroups::Range OdDbXrecord::dataRange() const {
  const OdDbGroupList& list = groups();
  const int end = odDbGroups::xDataStart(list);
  int first = 0;
  while (first < end && !(list[first].code == kMarkerCode && kSection.isMarker(list[first].bytes()))) ++first;
  if (first < end) ++first;
  // The merge style leads; old releases have none. Any code may occur in what follows, also that of a marker.
  if (first < end && list[first].code == kMergeStyleCode) ++first;
  return {first, end};
}

OdResBufPtr OdDbXrecord::rbChain() const {
  const auto [first, last] = dataRange();
  return odDbResBufs::read(groups(), first, last);
}

void OdDbXrecord::setFromRbChain(const OdResBuf* chain) {
  assertWriteEnabled();
  odDbResBufs::check(chain);
  OdDbGroupList& list = mutableGroups();
  const auto [first, last] = dataRange();
  list.erase(first, last);
  odDbResBufs::insert(list, first, chain);
}
