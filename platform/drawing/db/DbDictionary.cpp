#include "DbDictionary.h"
#include "DbDatabase.h"
#include "DbStore.h"
#include <unordered_map>

ODRX_CONS_DEFINE_MEMBERS(OdDbDictionaryIterator, OdRxObject, "")
ODRX_CONS_DEFINE_MEMBERS(OdDbDictionary, OdDbObject, "DICTIONARY")

namespace {

enum Code { kName = 3, kHardOwner = 280, kMergeStyle = 281, kSoftEntry = 350, kHardEntry = 360 };

constexpr OdDbField kFields[] = {
    {kHardOwner, OdDbFieldKind::kInt16},
    {kMergeStyle, OdDbFieldKind::kInt16, true, 1},
};
const OdDbSubclass kSection{"AcDbDictionary", kFields};
const OdDbSubclass* const kSchema[] = {&kSection};

bool isEntry(const OdDbGroupList& groups, int at) {
  return groups[at].code == kName && at + 1 < groups.size() &&
         groups[at + 1].kind == OdDbGroupKind::kHandle && odDbIsReference(groups[at + 1].code);
}

/// Index of the first entry's name, or the size; entries follow one another from there.
int firstEntry(const OdDbGroupList& groups) {
  int at = 0;
  while (at < groups.size() && !isEntry(groups, at)) ++at;
  return at;
}

/// Behind the last entry, searched from the end so that adding many entries costs no more than they are.
int endOfEntries(OdDbGroupList& groups, OdDbSchema schema) {
  for (int at = groups.size() - 2; at >= 0; --at)
    if (isEntry(groups, at)) return at + 2;
  return odDbGroups::place(groups, schema, kSection, kName);
}

} // namespace

// --- lookup ---

/// The entries by folded name and by handle. Of entries with the same name the first counts.
struct OdDbDictionary::Index {
  std::unordered_map<std::wstring, OdUInt64> byName;
  std::unordered_map<OdUInt64, OdString> byHandle;
  bool hasRepeats = false; ///< then a change may uncover an entry that another one hid

  void add(const OdString& name, OdUInt64 handle) {
    if (!byName.try_emplace(odFoldCase(name.str()), handle).second ||
        !byHandle.try_emplace(handle, name).second)
      hasRepeats = true;
  }
  void remove(const OdString& name, OdUInt64 handle) {
    byName.erase(odFoldCase(name.str()));
    byHandle.erase(handle);
  }
};

OdDbSchema OdDbDictionary::schema() const { return kSchema; }

const OdDbDictionary::Index& OdDbDictionary::index() const {
  if (!m_index) {
    m_index = std::make_shared<Index>();
    const OdDbGroupList& list = groups();
    for (int at = firstEntry(list); at < list.size(); ++at)
      if (isEntry(list, at)) m_index->add(list.text(at), list[at + 1].handle);
  }
  return *m_index;
}

OdDbObjectId OdDbDictionary::resolve(OdUInt64 handle) const {
  OdDbStub* own = objectId().stub();
  OdDbStub* stub = own ? own->store->find(handle) : nullptr;
  return stub && !stub->isErased() ? OdDbObjectId(stub) : OdDbObjectId();
}

OdDbObjectId OdDbDictionary::storedAt(const OdString& name) const {
  const auto entry = index().byName.find(odFoldCase(name.str()));
  return entry == index().byName.end() ? OdDbObjectId() : resolve(entry->second);
}

OdDbObjectId OdDbDictionary::getAt(const OdString& name) const {
  const OdDbObjectId stored = storedAt(name);
  return stored.isNull() ? fallback() : stored;
}

OdString OdDbDictionary::nameAt(OdDbObjectId id) const {
  const auto entry = index().byHandle.find(id.getHandle());
  return id.isErased() || entry == index().byHandle.end() ? OdString() : entry->second;
}

bool OdDbDictionary::has(OdDbObjectId id) const {
  return !id.isErased() && index().byHandle.contains(id.getHandle());
}

OdUInt32 OdDbDictionary::numEntries() const {
  OdUInt32 count = 0;
  for (const auto& [name, handle] : index().byName)
    if (!resolve(handle).isNull()) ++count;
  return count;
}

// --- iteration ---

OdDbDictionaryIteratorPtr OdDbDictionary::newIterator() const {
  OdDbDictionaryIteratorPtr iterator = OdDbDictionaryIterator::createObject();
  const OdDbGroupList& list = groups();
  for (int at = firstEntry(list); at < list.size(); ++at)
    if (isEntry(list, at)) iterator->m_entries.push_back({list.text(at), resolve(list[at + 1].handle)});
  iterator->skipErased();
  return iterator;
}

void OdDbDictionaryIterator::skipErased() {
  while (!done() && m_entries[m_at].id.isErased()) ++m_at;
}

bool OdDbDictionaryIterator::next() {
  if (!done()) ++m_at;
  skipErased();
  return !done();
}

OdString OdDbDictionaryIterator::name() const { return done() ? OdString() : m_entries[m_at].name; }
OdDbObjectId OdDbDictionaryIterator::objectId() const { return done() ? OdDbObjectId() : m_entries[m_at].id; }

// --- changes ---

int OdDbDictionary::entryPosition(OdUInt64 handle) const {
  const OdDbGroupList& list = groups();
  for (int at = firstEntry(list); at < list.size(); ++at)
    if (isEntry(list, at) && list[at + 1].handle == handle) return at;
  return -1;
}

OdDbObjectId OdDbDictionary::setAt(const OdString& name, OdDbObject* object) {
  assertWriteEnabled();
  if (!isDBRO()) throw OdError(eNotInDatabase);
  if (name.isEmpty()) throw OdError(eInvalidInput, L"A dictionary entry needs a name.");
  const auto known = index().byName.find(odFoldCase(name.str()));
  const OdUInt64 oldHandle = known == index().byName.end() ? 0 : known->second;
  const OdDbObjectId old = resolve(oldHandle);
  if (!old.isNull() && old == object->objectId()) return old;
  if (!old.isNull() && old.stub()->owner == objectId().stub()) old.safeOpenObject(OdDb::kForWrite)->erase();

  if (!object->isDBRO())
    database()->addOdDbObject(object, objectId());
  else
    object->setOwnerId(objectId());
  object->addPersistentReactor(objectId());
  const OdDbGroup value =
      OdDbGroup::ofHandle(isTreatElementsAsHard() ? kHardEntry : kSoftEntry, object->handle());

  OdDbGroupList& list = mutableGroups();
  const int position = oldHandle ? entryPosition(oldHandle) : -1;
  if (position >= 0) {
    list[position + 1] = value;
    m_index->remove(name, oldHandle);
    m_index->add(list.text(position), object->handle());
  } else {
    const int end = endOfEntries(list, schema());
    list.insert(end, list.makeText(kName, name));
    list.insert(end + 1, value);
    m_index->add(name, object->handle());
  }
  if (m_index->hasRepeats) m_index.reset();
  return object->objectId();
}

void OdDbDictionary::setName(const OdString& from, const OdString& to) {
  assertWriteEnabled();
  if (to.isEmpty()) throw OdError(eInvalidInput, L"A dictionary entry needs a name.");
  const OdDbObjectId id = storedAt(from);
  if (id.isNull()) throw OdError(eKeyNotFound);
  const OdDbObjectId other = storedAt(to);
  if (!other.isNull() && other != id) throw OdError(eDuplicateKey);
  if (other.isNull()) remove(to); // what is left of an erased object
  OdDbGroupList& list = mutableGroups();
  const int position = entryPosition(id.getHandle());
  list[position] = list.makeText(kName, to);
  m_index.reset();
}

OdDbObjectId OdDbDictionary::remove(const OdString& name) {
  assertWriteEnabled();
  const auto entry = index().byName.find(odFoldCase(name.str()));
  if (entry == index().byName.end()) return {};
  const OdUInt64 handle = entry->second;
  const OdDbObjectId id = resolve(handle);
  OdDbGroupList& list = mutableGroups();
  const int position = entryPosition(handle);
  list.erase(position, position + 2);
  if (m_index->hasRepeats)
    m_index.reset();
  else
    m_index->remove(name, handle);
  const OdDbObjectPtr object = id.openObject(OdDb::kForWrite);
  if (object.isNull()) return {};
  object->removePersistentReactor(objectId());
  if (object->ownerId() == objectId()) object->setOwnerId({});
  return id;
}

bool OdDbDictionary::isTreatElementsAsHard() const { return integer(kSection, kHardOwner) != 0; }

void OdDbDictionary::setTreatElementsAsHard(bool hard) {
  setInteger(kSection, kHardOwner, hard ? 1 : 0);
  OdDbGroupList& list = mutableGroups();
  for (int at = firstEntry(list); at < list.size(); ++at)
    if (isEntry(list, at)) list[at + 1].code = hard ? kHardEntry : kSoftEntry;
}

bool OdDbDictionary::isWritten(int index) const {
  const OdDbGroupList& list = groups();
  const int entry = isEntry(list, index) ? index : index - 1;
  if (entry < 0 || !isEntry(list, entry) || !isDBRO()) return true;
  const OdDbStub* stub = objectId().stub()->store->find(list[entry + 1].handle);
  return !stub || !stub->isErased();
}
