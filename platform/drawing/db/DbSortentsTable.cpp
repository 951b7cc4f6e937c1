#include "DbSortentsTable.h"
#include "DbStore.h"
#include <algorithm>
#include <unordered_map>
#include <vector>

ODRX_CONS_DEFINE_MEMBERS(OdDbSortentsTable, OdDbObject, "SORTENTSTABLE")

namespace {

enum Code { kSortHandle = 5, kBlock = 330, kEntity = 331 };

constexpr OdDbField kFields[] = {{kBlock, OdDbFieldKind::kObjectId, true}};
const OdDbSubclass kSection{"AcDbSortentsTable", kFields};
const OdDbSubclass* const kSchema[] = {&kSection};

/// Pairs follow one another: the entity, and the handle it sorts under.
std::unordered_map<OdUInt64, OdUInt64> readSortHandles(const OdDbGroupList& groups) {
  std::unordered_map<OdUInt64, OdUInt64> sortHandles;
  for (int i = 0; i + 1 < groups.size(); ++i)
    if (groups[i].code == kEntity && groups[i + 1].code == kSortHandle)
      sortHandles.emplace(groups[i].handle, groups[i + 1].handle);
  return sortHandles;
}

} // namespace

OdDbSchema OdDbSortentsTable::schema() const { return kSchema; }

OdDbObjectId OdDbSortentsTable::blockId() const { return reference(kSection, kBlock); }

void OdDbSortentsTable::getFullDrawOrder(OdDbObjectIdArray& ids) const {
  const OdDbStub* block = blockId().stub();
  if (!block || !block->children) return;
  const auto sortHandles = readSortHandles(groups());
  std::vector<std::pair<OdUInt64, OdDbStub*>> order;
  for (OdDbStub* entity = block->children->first; entity; entity = entity->next) {
    const auto listed = sortHandles.find(entity->handle);
    order.emplace_back(listed == sortHandles.end() ? entity->handle : listed->second, entity);
  }
  std::stable_sort(order.begin(), order.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  for (const auto& [handle, entity] : order) ids.append(OdDbObjectId(entity));
}
