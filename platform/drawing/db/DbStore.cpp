#include "DbStore.h"
#include "DbDatabase.h"
#include "DbObject.h"
#include "DbPolylineSequence.h"
#include "sys/pages.h"
#include <algorithm>
#include <bit>

namespace {
constexpr std::size_t kStubsPerChunk = 2048;
constexpr std::string_view kSeedVariable = "$HANDSEED";
} // namespace

// --- OdDbHandleIndex ---

OdDbHandleIndex::OdDbHandleIndex() : m_slots(&sys::pages()) {}

std::size_t OdDbHandleIndex::slot(OdUInt64 handle) const {
  // Handles are mostly given out one after another. Eight neighbours share a line of the processor's cache,
  // and Fibonacci hashing spreads the lines evenly.
  const std::size_t mask = m_slots.size() - 1;
  const OdUInt64 line = (handle / kLine * 0x9E3779B97F4A7C15ull) >> m_shift;
  std::size_t at = static_cast<std::size_t>(line * kLine + handle % kLine);
  while (m_slots[at] && m_slots[at]->handle != handle) at = (at + 1) & mask;
  return at;
}

OdDbStub* OdDbHandleIndex::find(OdUInt64 handle) const {
  return m_slots.empty() || handle == 0 ? nullptr : m_slots[slot(handle)];
}

void OdDbHandleIndex::reserve(std::size_t count) {
  std::size_t wanted = 1024;
  while (wanted < count * 2) wanted *= 2;
  if (wanted <= m_slots.size()) return;
  m_shift = 64 - std::countr_zero(wanted / kLine);
  std::pmr::vector<OdDbStub*> old(wanted, nullptr, m_slots.get_allocator());
  old.swap(m_slots);
  for (OdDbStub* stub : old)
    if (stub) m_slots[slot(stub->handle)] = stub;
}

bool OdDbHandleIndex::insert(OdDbStub* stub) {
  if (m_slots.size() < (m_count + 1) * 3 / 2) reserve(m_count + 1);
  const std::size_t at = slot(stub->handle);
  if (m_slots[at]) return false;
  m_slots[at] = stub;
  ++m_count;
  return true;
}

// --- OdDbStore: life ---

OdDbStore::OdDbStore(OdDbDatabase* owner) : database(owner), undo(*this) {}

OdDbStore::~OdDbStore() {
  undo.clear();
  // Instances that outlive the drawing keep their groups, but belong to no database any more.
  for (auto chunk = m_stubs.begin(); chunk != m_stubs.end() && m_liveCount > 0; ++chunk)
    for (const OdDbStub& stub : *chunk)
      if (OdDbObject* live = stub.live) {
        live->groups();
        live->mutableGroupsUnrecorded().own();
        live->detachFromStub();
      }
  for (OdDbStub* stub : m_changed)
    if (stub->groups) stub->setGroups({});
}

// --- header ---

OdDbHeaderVariable* OdDbStore::headerVariable(std::string_view name) {
  for (OdDbHeaderVariable& variable : header)
    if (variable.name == name) return &variable;
  return nullptr;
}

void OdDbStore::storeHeaderVariable(const std::string& name, OdDbGroupListPtr groups) {
  const auto at = std::find_if(header.begin(), header.end(),
                               [&](const OdDbHeaderVariable& variable) { return variable.name == name; });
  if (!groups) {
    if (at != header.end()) header.erase(at);
  } else if (at != header.end()) {
    at->groups = std::move(groups);
  } else {
    header.push_back({name, std::move(groups)});
  }
}

void OdDbStore::setHeaderVariable(const std::string& name, OdDbGroupListPtr groups) {
  const OdDbHeaderVariable* variable = headerVariable(name);
  undo.noteHeader(name, variable ? variable->groups : OdDbGroupListPtr());
  storeHeaderVariable(name, std::move(groups));
}

// --- objects ---

static const OdRxClass* keptAsRead(bool entity) {
  return odrxGetClassByName(entity ? L"OdDbProxyEntity" : L"OdDbProxyObject");
}

OdUInt16 OdDbStore::typeIndex(std::string_view dxfName, bool entity) {
  const auto known = m_typeByName.find(std::pair<std::string, bool>(dxfName, entity));
  if (known != m_typeByName.end()) return known->second;
  const OdRxClass* cls = odrxGetClassByDxfName(dxfName);
  static const OdRxClass* entityClass = odrxGetClassByName(L"OdDbEntity");
  if (!cls || cls->isDerivedFrom(entityClass) != entity) cls = keptAsRead(entity);
  const auto index = static_cast<OdUInt16>(types.size());
  types.push_back({std::string(dxfName), cls, entity && odDbSequences::isShared(dxfName)});
  m_typeByName.emplace(std::pair(std::string(dxfName), entity), index);
  return index;
}

const OdRxClass* OdDbStore::classOf(const OdDbStub& stub) const {
  const OdDbType& type = types[stub.type];
  return type.isShared ? odDbSequences::classOf(stub) : type.cls;
}

OdUInt16 OdDbStore::tableTypeIndex(std::string_view tableName) {
  const OdUInt16 index = typeIndex("TABLE " + std::string(tableName), false);
  types[index].dxfName = "TABLE";
  return index;
}

void OdDbStore::reserve(std::size_t objectCount) {
  m_index.reserve(objectCount);
  if (m_stubs.empty() && objectCount > 0) addChunk(objectCount);
}

void OdDbStore::addChunk(std::size_t capacity) { m_stubs.emplace_back(&sys::pages()).reserve(capacity); }

OdDbStub* OdDbStore::makeStub(OdUInt16 type, OdUInt64 handle, OdDbStub* owner) {
  if (handle == 0) handle = nextHandle;
  if (m_stubs.empty() || m_stubs.back().size() == m_stubs.back().capacity()) addChunk(kStubsPerChunk);
  OdDbStub* stub = &m_stubs.back().emplace_back();
  stub->handle = handle;
  if (!m_index.insert(stub)) {
    m_stubs.back().pop_back();
    return nullptr;
  }
  stub->store = this;
  stub->type = type;
  stub->owner = owner;
  if (handle >= nextHandle) nextHandle = handle + 1;
  return stub;
}

OdDbStub* OdDbStore::makeNewStub(const OdRxClass* cls, std::string_view dxfName, OdDbStub* owner,
                                 OdUInt64 handle) {
  static const OdRxClass* entityClass = odrxGetClassByName(L"OdDbEntity");
  const bool entity = cls->isDerivedFrom(entityClass);
  OdDbStub* stub = makeStub(typeIndex(dxfName, entity), handle, owner);
  if (!stub) throw OdError(eHandleExists);
  stub->setMade();
  if (entity) stub->flags |= OdDbStub::kEntity;
  if (!hasHandles) return stub; // there is no seed either
  OdDbGroupListPtr seed(new OdDbGroupList);
  seed->append(OdDbGroup::ofHandle(5, nextHandle));
  // The seed follows every new object; its value before the first of them is what undo needs.
  const std::string name(kSeedVariable);
  if (m_seedEpoch == undo.epoch()) {
    storeHeaderVariable(name, std::move(seed));
  } else {
    m_seedEpoch = undo.epoch();
    setHeaderVariable(name, std::move(seed));
  }
  return stub;
}

OdDbStubList* OdDbStore::childrenOf(OdDbStub* container) {
  if (!container->children) {
    void* memory = m_arena.allocate(sizeof(OdDbStubList), alignof(OdDbStubList));
    container->children = new (memory) OdDbStubList{container};
  }
  return container->children;
}

OdDbStub* OdDbStore::table(std::string_view name) const {
  for (const auto& [tableName, stub] : tables)
    if (tableName == name) return stub;
  return nullptr;
}

OdDbStub* OdDbStore::space(bool paper) {
  OdDbStub* records = table("BLOCK_RECORD");
  // Old releases write a dollar sign for the asterisk.
  OdDbStub* record = findRecord(records, paper ? L"*Paper_Space" : L"*Model_Space");
  if (!record) record = findRecord(records, paper ? L"$Paper_Space" : L"$Model_Space");
  return record || paper ? record : unnamedModelSpace;
}

static bool isEndMark(const OdDbStub* stub) { return stub->dxfName() == "SEQEND"; }

void OdDbStore::link(OdDbStub* stub, OdDbStub* after) {
  OdDbStubList* list = stub->list();
  if (!after) after = list->last;
  if (after && after == list->last && isEndMark(after) && !isEndMark(stub)) after = after->previous;
  list->link(stub, after);
  ++revision;
  undo.noteLink(stub);
  refreshRecordName(stub);
}

void OdDbStore::attach(OdDbStub* stub, OdDbObject* object) {
  object->m_stub = stub;
  stub->live = object;
  ++m_liveCount;
}

OdDbObject* OdDbStore::open(OdDbStub* stub) {
  if (stub->live) {
    stub->live->addRef();
    return stub->live;
  }
  auto* object = static_cast<OdDbObject*>(classOf(*stub)->create().detach());
  attach(stub, object);
  return object;
}

// --- names of table records ---

void OdDbStore::NameIndex::set(OdDbStub* record, std::wstring folded) {
  const auto known = names.find(record);
  if (known != names.end()) {
    if (known->second.folded == folded) return;
    records[known->second.folded].erase(known->second.number);
  }
  records[folded].emplace(nextNumber, record);
  names[record] = {std::move(folded), nextNumber++};
}

OdString OdDbStore::recordName(const OdDbGroupList& groups) {
  constexpr int kNameCode = 2;
  const int size = groups.size();
  for (int i = 0; i < size; ++i)
    if (groups[i].code == kNameCode) return groups.text(i);
  return {};
}

OdDbStore::NameIndex& OdDbStore::nameIndex(OdDbStub* table) {
  const auto [at, isNew] = m_names.try_emplace(table);
  if (isNew && table->children)
    for (OdDbStub* record = table->children->first; record; record = record->next)
      at->second.set(record, odFoldCase(recordName(*record->content()).str()));
  return at->second;
}

OdDbStub* OdDbStore::findRecord(OdDbStub* table, std::wstring_view name) {
  if (!table) return nullptr;
  NameIndex& index = nameIndex(table);
  const auto found = index.records.find(odFoldCase(name));
  if (found == index.records.end()) return nullptr;
  for (const auto& [number, record] : found->second)
    if (!record->isErased()) return record;
  return nullptr;
}

void OdDbStore::refreshRecordName(OdDbStub* record) {
  const auto index = m_names.find(record->owner);
  if (index == m_names.end() || (record->flags & OdDbStub::kDetached)) return;
  index->second.set(record, odFoldCase(recordName(*record->content()).str()));
}

const std::wstring& OdDbStore::foldedName(OdDbStub* record) {
  static const std::wstring kNone;
  if (!record || !record->owner || record->owner->dxfName() != "TABLE") return kNone;
  const NameIndex& index = nameIndex(record->owner);
  const auto found = index.names.find(record);
  return found == index.names.end() ? kNone : found->second.folded;
}
