// What applications attach to objects: persistent reactors and extended data.
#include "DbBraces.h"
#include "DbDatabase.h"
#include "DbRegAppTable.h"
#include "DbResBufGroups.h"
#include "DbStore.h"

// --- persistent reactors ---

namespace {

constexpr std::string_view kReactors = "{ACAD_REACTORS";
constexpr int kReactorCode = 330;

int reactorIndex(const OdDbGroupList& groups, OdUInt64 handle) {
  const auto [first, last] = odDbGroups::braces(groups, kReactors);
  for (int i = first; first >= 0 && i < last; ++i)
    if (groups[i].kind == OdDbGroupKind::kHandle && groups[i].handle == handle) return i;
  return -1;
}

} // namespace

OdDbObjectIdArray OdDbObject::getPersistentReactors() const {
  OdDbObjectIdArray reactors;
  const auto [first, last] = odDbGroups::braces(groups(), kReactors);
  for (int i = first; m_stub && first >= 0 && i < last; ++i)
    if (groups()[i].kind == OdDbGroupKind::kHandle)
      if (OdDbStub* reactor = m_stub->store->find(groups()[i].handle)) reactors.append(OdDbObjectId(reactor));
  return reactors;
}

void OdDbObject::addPersistentReactor(OdDbObjectId reactor) {
  OdDbGroupList& list = mutableGroups();
  if (reactorIndex(list, reactor.getHandle()) < 0)
    odDbBraces::add(list, kReactors, OdDbGroup::ofHandle(kReactorCode, reactor.getHandle()),
                    odDbBraces::kLast);
}

void OdDbObject::removePersistentReactor(OdDbObjectId reactor) {
  OdDbGroupList& list = mutableGroups();
  const int at = reactorIndex(list, reactor.getHandle());
  if (at < 0) return;
  list.erase(at, at + 1);
  const auto [first, last] = odDbGroups::braces(list, kReactors);
  if (first == last) odDbBraces::remove(list, kReactors);
}

// --- extended data ---

namespace {

constexpr int kApplicationCode = 1001;

/// The groups of one application, its name included; empty when it has none.
odDbGroups::Range applicationRange(const OdDbGroupList& groups, const std::wstring& folded) {
  int first = odDbGroups::xDataStart(groups);
  while (first < groups.size() &&
         !(groups[first].code == kApplicationCode && odFoldCase(groups.text(first).str()) == folded))
    ++first;
  int last = std::min(first + 1, groups.size());
  while (last < groups.size() && groups[last].code != kApplicationCode) ++last;
  return {first, last};
}

/// Files refer to applications by name, and readers refuse names that the drawing does not know.
void registerApplication(OdDbDatabase* database, const OdString& name) {
  if (!database) return;
  const OdDbSymbolTablePtr table = database->getRegAppTableId().openObject(OdDb::kForWrite);
  if (table.isNull() || table->has(name)) return;
  const OdDbRegAppTableRecordPtr record = OdDbRegAppTableRecord::createObject();
  record->setName(name);
  table->add(record);
}

const OdResBuf* nextApplication(const OdResBuf* item) {
  do item = item->next();
  while (item && item->restype() != kApplicationCode);
  return item;
}

void checkXData(const OdResBuf* data) {
  if (data && data->restype() != kApplicationCode)
    throw OdError(eInvalidInput, L"Extended data begins with the name of its application.");
  for (const OdResBuf* item = data; item; item = item->next())
    if (item->restype() < 1000 || item->restype() > 1071)
      throw OdError(eInvalidInput, L"Extended data takes the group codes 1000 to 1071 only.");
  odDbResBufs::check(data);
}

} // namespace

OdResBufPtr OdDbObject::xData(const OdString& applicationName) const {
  const OdDbGroupList& list = groups();
  if (applicationName.isEmpty()) return odDbResBufs::read(list, odDbGroups::xDataStart(list), list.size());
  const auto [first, last] = applicationRange(list, odFoldCase(applicationName.str()));
  return odDbResBufs::read(list, first, last);
}

void OdDbObject::setXData(const OdResBuf* data) {
  assertWriteEnabled();
  checkXData(data);
  while (data) {
    const OdResBuf* next = nextApplication(data);
    const OdString name = data->getString();
    OdDbGroupList& list = mutableGroups();
    const auto [first, last] = applicationRange(list, odFoldCase(name.str()));
    list.erase(first, last);
    if (data->next() != next) {
      registerApplication(database(), name);
      odDbResBufs::insert(list, first, data, next);
    }
    data = next;
  }
}
