// The objects that records become, and those that a file lacks.
#include "DbBlockBegin.h"
#include "DbBlockTableRecord.h"
#include "DxfBuilder.h"
#include <algorithm>
#include <limits>

OdUInt16 DxfBuilder::type(bool entity) {
  const std::string_view name = m_record.name;
  // Files hold few kinds of records, most of them many times over.
  const std::size_t hash = name.empty() ? 0
                                        : name.size() * 31 + static_cast<unsigned char>(name.front()) * 7 +
                                              static_cast<unsigned char>(name.back());
  TypeSlot& slot = m_types[(hash + (entity ? 1 : 0)) % kTypeSlots];
  if (slot.name != name || slot.entity != entity)
    slot = {name, checked(m_store.typeIndex(name, entity)), entity};
  return slot.type;
}

OdUInt16 DxfBuilder::checked(OdUInt16 type) const {
  constexpr std::size_t kMostTypes = 60000;
  if (m_store.types.size() > kMostTypes)
    fail("the file has more different kinds of records than any drawing");
  return type;
}

OdDbStub* DxfBuilder::makeStub(OdUInt16 type, OdDbStub* owner) {
  const OdUInt64 handle = m_record.handle == 0 ? freeHandle() : m_record.handle;
  if (handle > kLargestHandle)
    fail("the handle " + OdDbHandle(handle).ascii().toUtf8() + " leaves no room for new ones");
  if (m_record.raw.size() > std::numeric_limits<OdUInt32>::max())
    fail("a record of more than four gigabytes");
  OdDbStub* stub = m_store.makeStub(type, handle, owner);
  if (!stub) failDuplicate();
  stub->raw = m_record.raw.data();
  stub->rawSize = static_cast<OdUInt32>(m_record.raw.size());
  m_hasHandles |= m_record.handle != 0;
  m_largestHandle = std::max(m_largestHandle, m_record.handle);
  return stub;
}

void DxfBuilder::failDuplicate() const {
  const OdDbStub* first = m_store.find(m_record.handle);
  fail("the handle " + OdDbHandle(m_record.handle).ascii().toUtf8() + " of " + std::string(m_record.name) +
       " is already used by " + first->dxfName() +
       (first->raw ? " in " + m_text.describe(first->raw) : std::string()));
}

OdDbStub* DxfBuilder::makeEntity(OdDbStub* owner) {
  OdDbStub* stub = makeStub(type(true), owner);
  stub->flags |= OdDbStub::kEntity;
  return stub;
}

OdUInt64 DxfBuilder::freeHandle() {
  if (!m_handlesAreFree) m_store.nextHandle = std::max(m_store.nextHandle, m_source.largestHandleAhead() + 1);
  m_handlesAreFree = true;
  return m_store.nextHandle;
}

/// An object that the file lacks; it will be written as new.
OdDbStub* DxfBuilder::makeNew(OdUInt16 type, OdDbStub* owner, const OdDbGroupListPtr& groups) {
  OdDbStub* stub = m_store.makeStub(type, freeHandle(), owner);
  if (!stub) fail("there is no free handle left");
  stub->setGroups(groups);
  m_largestHandle = std::max(m_largestHandle, stub->handle);
  return stub;
}

// --- entities ---

/// Whether the record belongs to the reference or polyline before it, whatever owner it tells.
bool DxfBuilder::isMember() const {
  return m_record.name == "ATTRIB" || m_record.name == "VERTEX" || m_record.name == "SEQEND";
}

void DxfBuilder::checkOwner(const OdDbStub* block) const {
  if (m_record.owner != 0 && m_record.owner != block->handle && !isMember())
    fail("the owner " + OdDbHandle(m_record.owner).ascii().toUtf8() + " of " + std::string(m_record.name) +
         " is not the block that contains it");
}

OdDbStub* DxfBuilder::entityBlock() {
  if (isMember()) return nullptr;
  if (m_record.owner == 0) return space(m_record.inPaperSpace);
  OdDbStub* owner = m_store.find(m_record.owner);
  if (!owner || owner->owner != blockTable())
    fail("the owner " + OdDbHandle(m_record.owner).ascii().toUtf8() + " of " + std::string(m_record.name) +
         " is no block record");
  if (!m_record.inPaperSpace && !m_store.unnamedModelSpace) m_store.unnamedModelSpace = owner;
  return owner;
}

void DxfBuilder::readEntity(OdDbStub* block) {
  if (isMember()) {
    readMember();
    return;
  }
  closeSequence();
  OdDbStub* stub = makeEntity(block);
  OdDbStubList* entities = m_store.childrenOf(block);
  entities->link(stub, entities->last);
  if (m_record.name == "INSERT" || m_record.name == "POLYLINE") m_sequence = stub;
}

void DxfBuilder::readMember() {
  const std::string_view name = m_record.name;
  const bool attribute = name == "ATTRIB";
  if (!m_sequence || (name != "SEQEND" && attribute != (m_sequence->dxfName() == "INSERT")))
    fail(std::string(name) + (attribute ? " does not follow an INSERT" : " does not follow a POLYLINE"));
  OdDbStub* stub = makeEntity(m_sequence);
  OdDbStubList* members = m_store.childrenOf(m_sequence);
  members->link(stub, members->last);
  m_sequence->flags |= OdDbStub::kSequenceFollows;
  if (name == "SEQEND") m_sequence = nullptr;
}

/// Gives a sequence that the file leaves open its end mark.
void DxfBuilder::closeSequence() {
  if (m_sequence && m_sequence->children) {
    OdDbStubList* members = m_sequence->children;
    const OdDbObjectPtr end = odrxGetClassByDxfName("SEQEND")->create();
    end->groups();
    OdDbStub* stub =
        makeNew(m_store.typeIndex("SEQEND", true), m_sequence, OdDbGroupListPtr(&end->mutableGroups()));
    stub->flags |= OdDbStub::kEntity;
    members->link(stub, members->last);
  }
  m_sequence = nullptr;
}

// --- block records ---

OdDbStub* DxfBuilder::blockTable() {
  constexpr const char* kName = "BLOCK_RECORD";
  if (!m_blockTable) m_blockTable = m_store.table(kName);
  if (m_blockTable) return m_blockTable;
  const OdDbObjectPtr table = odrxGetClassByDxfName("TABLE BLOCK_RECORD")->create();
  table->groups();
  OdDbGroupListPtr groups(&table->mutableGroups());
  groups->insert(0, groups->makeBytes(2, kName));
  m_blockTable = makeNew(m_store.tableTypeIndex(kName), nullptr, groups);
  m_store.tables.emplace_back(kName, m_blockTable);
  return m_blockTable;
}

OdDbStub* DxfBuilder::makeBlockRecord(const OdString& name) {
  const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
  record->setName(name);
  OdDbStub* table = blockTable();
  OdDbStub* stub =
      makeNew(m_store.typeIndex("BLOCK_RECORD", false), table, OdDbGroupListPtr(&record->mutableGroups()));
  OdDbStubList* records = m_store.childrenOf(table);
  records->link(stub, records->last);
  m_store.refreshRecordName(stub);
  return stub;
}

OdDbStub* DxfBuilder::blockRecordOf(const DxfRecord& block) {
  OdDbStub* owner = m_store.find(block.owner);
  // Releases that know blocks by name only do not store owners when the block is changed.
  const bool byOwner = m_store.version == OdDb::vUnknown || dxfStoresBlockRecords(m_store.version);
  if (byOwner && owner && owner->owner == blockTable()) return owner;
  if (!block.behindTitle) fail("a block has neither a block record (group 330) nor a name (group 2)");
  const OdString name = m_store.codec->decode(block.title);
  if (name.isEmpty()) fail("a block without a block record (group 330) has an empty name (group 2)");
  OdDbStub* known = m_store.findRecord(blockTable(), name.str());
  return known ? known : makeBlockRecord(name);
}

OdDbStub* DxfBuilder::space(bool paper) {
  OdDbStub*& known = m_spaces[paper ? 1 : 0];
  if (known) return known;
  const OdString name = paper ? L"*Paper_Space" : L"*Model_Space";
  known = m_store.space(paper);
  if (!known) known = makeBlockRecord(name);
  if (storesBlockRecords() && !m_store.blockEnds[known].begin) makeBlockEnds(known, name);
  return known;
}

void DxfBuilder::makeBlockEnds(OdDbStub* record, const OdString& name) {
  const OdDbBlockBeginPtr begin = OdDbBlockBegin::createObject();
  begin->setBlockName(name);
  const OdDbObjectPtr end = OdDbBlockEnd::createObject();
  end->groups();
  OdDbStub* stubs[2];
  for (const auto& [index, object] : {std::pair<int, OdDbObject*>(0, begin.get()), {1, end.get()}}) {
    stubs[index] = makeNew(m_store.typeIndex(object->dxfName(), true), record,
                           OdDbGroupListPtr(&object->mutableGroups()));
    stubs[index]->flags |= OdDbStub::kEntity;
  }
  m_store.blockEnds[record] = {stubs[0], stubs[1]};
  m_store.blockOrder.push_back(record);
}
