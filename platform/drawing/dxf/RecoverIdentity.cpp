#include "RecoverIdentity.h"
#include "OdString.h"
#include <algorithm>

namespace {

/// Beyond this, a drawing could run out of handles for new objects.
constexpr OdUInt64 kLargestHandle = 0xFFFFFFFF00000000;

} // namespace

void RecoverIdentity::tell(OdDbDxfFinding::Kind kind, const char* id, const RecoverRecord& record,
                           const std::string& sentence) {
  m_context.tell(kind, id, record, RecoverContext::describe(record) + " " + sentence);
}

void RecoverIdentity::repair() {
  findLargestHandle();
  indexHandles();
  adoptOrphans();
  indexBlockRecords();
  repairTables();
  repairBlocks();
  repairEntities();
  repairObjects();
  repairSeed();
}

RecoverRecord* RecoverIdentity::recordAt(OdUInt64 handle) const {
  const auto found = m_byHandle.find(handle);
  return found == m_byHandle.end() ? nullptr : found->second;
}

/// The block record of a handle, also of one that it had to give up to another object.
RecoverRecord* RecoverIdentity::blockRecordAt(OdUInt64 handle) const {
  RecoverRecord* record = recordAt(handle);
  if (record && m_blockRecords.contains(record)) return record;
  const auto renumbered = m_renumbered.find(handle);
  const bool isKnown = renumbered != m_renumbered.end() && m_blockRecords.contains(renumbered->second);
  return isKnown ? renumbered->second : nullptr;
}

// --- handles ---

namespace {

/// Calls `visit(record)` for the records that have handles.
template <class Visit>
void visitObjects(RecoverStructure& structure, const Visit& visit) {
  using Kind = RecoverStructure::Kind;
  for (const Kind kind : {Kind::kTables, Kind::kBlocks, Kind::kEntities, Kind::kObjects}) {
    RecoverStructure::Section* section = structure.section(kind);
    if (!section) continue;
    for (RecoverStructure::Part& part : section->parts) {
      if (part.head) visit(*part.head);
      for (RecoverRecord* record : part.members) visit(*record);
      if (part.end && kind == Kind::kBlocks) visit(*part.end);
    }
  }
}

} // namespace

void RecoverIdentity::findLargestHandle() {
  const auto note = [this](const RecoverRecord& record) {
    if (record.handle <= kLargestHandle) m_largestRead = std::max(m_largestRead, record.handle);
  };
  visitObjects(m_structure, note);
  for (const RecoverRecord* orphan : m_structure.orphans) note(*orphan);
  const OdUInt64 seed = m_header.seed();
  m_largest = std::max(m_largestRead, seed > 0 && seed <= kLargestHandle ? seed - 1 : 0);
}

void RecoverIdentity::indexHandles() {
  visitObjects(m_structure, [this](RecoverRecord& record) { indexHandle(record); });
}

void RecoverIdentity::indexHandle(RecoverRecord& record) {
  const OdUInt64 handle = record.handle;
  if (handle == 0) {
    if (m_storesBlockRecords) giveHandle(record);
    return;
  }
  if (handle <= kLargestHandle && m_byHandle.emplace(handle, &record).second) return;
  const std::string was = RecoverContext::describe(record);
  const bool isTooLarge = handle > kLargestHandle;
  const RecoverRecord* first = isTooLarge ? nullptr : recordAt(handle);
  giveHandle(record);
  if (record.name == "BLOCK_RECORD") m_renumbered.emplace(handle, &record);
  const std::string now = ": it becomes " + recoverHexadecimal(record.handle);
  if (isTooLarge)
    m_context.findings.add(OdDbDxfFinding::kRepair, "handle-out-of-range", record.where, record.handle,
                           "the handle of " + was + " leaves no room for new ones" + now);
  else
    m_context.findings.add(OdDbDxfFinding::kRepair, "duplicate-handle", record.where, record.handle,
                           "the handle of " + was + " is already used by " + std::string(first->name) +
                               (first->where ? " in " + m_context.place(first->where) : std::string()) + now);
}

void RecoverIdentity::giveHandle(RecoverRecord& record) {
  if (record.where != 0 && record.handle == 0)
    tell(OdDbDxfFinding::kRepair, "handle-missing", record,
         "has no handle: it gets " + recoverHexadecimal(m_largest + 1));
  m_context.apply(record, {.handle = ++m_largest});
  m_byHandle.emplace(record.handle, &record);
}

void RecoverIdentity::setOwner(RecoverRecord& record, OdUInt64 owner, const char* id) {
  const std::string old = recoverHexadecimal(record.owner);
  tell(OdDbDxfFinding::kRepair, id, record,
       "has the owner " + old + ", which is not there or of a wrong kind: " +
           (owner != 0 ? "it is given to " + recoverHexadecimal(owner) : std::string("it is taken from it")));
  m_context.apply(record, {.owner = owner});
}

// --- members ---

/// Members that do not follow their reference or polyline go back to it by their owner.
void RecoverIdentity::adoptOrphans() {
  std::unordered_map<const RecoverRecord*, std::vector<RecoverRecord*>> adopted;
  for (RecoverRecord* orphan : m_structure.orphans) {
    RecoverRecord* owner = recordAt(orphan->owner);
    const bool isAttribute = orphan->name == "ATTRIB";
    if (owner && owner->name == (isAttribute ? "INSERT" : "POLYLINE")) {
      tell(OdDbDxfFinding::kRepair, "member-misplaced", *orphan,
           "does not follow its owner: it is put behind " + RecoverContext::describe(*owner));
      indexHandle(*orphan);
      adopted[owner].push_back(orphan);
    } else {
      tell(OdDbDxfFinding::kError, isAttribute ? "attribute-alone" : "vertex-alone", *orphan,
           isAttribute ? "follows no INSERT: it is left out" : "follows no POLYLINE: it is left out");
    }
  }
  if (adopted.empty()) return;
  for (const auto kind : {RecoverStructure::kBlocks, RecoverStructure::kEntities}) {
    RecoverStructure::Section* section = m_structure.section(kind);
    if (!section) continue;
    for (RecoverStructure::Part& part : section->parts) {
      std::vector<RecoverRecord*> members;
      for (RecoverRecord* member : part.members) {
        members.push_back(member);
        const auto found = adopted.find(member);
        if (found != adopted.end()) members.insert(members.end(), found->second.begin(), found->second.end());
      }
      part.members.swap(members);
    }
  }
}

// --- tables ---

std::wstring RecoverIdentity::folded(std::string_view name) const {
  return odFoldCase(m_codec->decode(name).str());
}

void RecoverIdentity::indexBlockRecords() {
  constexpr const char* kTable = "BLOCK_RECORD";
  RecoverStructure::Section* tables = m_structure.section(RecoverStructure::kTables);
  if (!tables) return;
  for (RecoverStructure::Part& part : tables->parts) {
    if (!part.head || part.head->title != kTable) continue;
    for (RecoverRecord* record : part.members) {
      m_blockRecords.insert(record);
      if (!record->hasTitle()) continue;
      m_blockRecordsByName.emplace(folded(record->title), record);
      m_blockNames.insert(folded(record->title));
    }
  }
}

void RecoverIdentity::repairTables() {
  RecoverStructure::Section* tables = m_structure.section(RecoverStructure::kTables);
  if (!tables) return;
  for (RecoverStructure::Part& part : tables->parts)
    for (RecoverRecord* record : part.members)
      if (record->owner != 0 && part.head->handle != 0 && record->owner != part.head->handle)
        setOwner(*record, part.head->handle, "wrong-owner");
}

// --- blocks ---

/// A name that no block has.
std::string RecoverIdentity::freeName(std::string_view like) {
  int& number = m_lastNumbers[std::string(like)];
  for (;;) {
    std::string name = std::string(like) + "_" + std::to_string(++number + 1);
    if (!m_blockNames.contains(folded(name))) return name;
  }
}

RecoverRecord* RecoverIdentity::makeBlockRecord(const RecoverRecord& head, OdUInt64 handle) {
  RecoverStructure::Part& table = m_structure.table("BLOCK_RECORD");
  if (table.head->handle == 0) giveHandle(*table.head);
  RecoverRecord* record = m_context.make("BLOCK_RECORD", {{330, recoverHexadecimal(table.head->handle)},
                                                          {100, "AcDbSymbolTableRecord"},
                                                          {100, "AcDbBlockTableRecord"},
                                                          {2, std::string(head.title)}});
  record->owner = table.head->handle;
  if (handle != 0 && handle <= kLargestHandle && !recordAt(handle)) {
    m_context.apply(*record, {.handle = handle});
    m_byHandle.emplace(handle, record);
    m_largest = std::max(m_largest, handle);
  } else {
    giveHandle(*record);
  }
  table.members.push_back(record);
  m_blockRecords.insert(record);
  m_blockRecordsByName.emplace(folded(head.title), record);
  m_defined.insert(record);
  return record;
}

/// The block record to which a definition belongs; null where the reader is to make it from the name.
RecoverRecord* RecoverIdentity::blockRecordOf(RecoverRecord& head) {
  RecoverRecord* record = blockRecordAt(head.owner);
  if (!record && !head.hasTitle()) {
    const std::string name = freeName("Unnamed");
    tell(OdDbDxfFinding::kRepair, "block-without-name", head, "has no name: it becomes " + name);
    m_context.apply(head, {.title = name});
  }
  if (!record) {
    const auto named = m_blockRecordsByName.find(folded(head.title));
    if (named != m_blockRecordsByName.end()) record = named->second;
  }
  const bool isTwice =
      record ? !m_defined.insert(record).second : !m_blockNames.insert(folded(head.title)).second;
  if (isTwice) {
    std::string_view like = head.title;
    if (!head.hasTitle() && record) like = record->title;
    const std::string name = freeName(like.empty() ? "Unnamed" : like);
    tell(OdDbDxfFinding::kRepair, "block-twice", head, "is defined twice: the second becomes " + name);
    m_context.apply(head, {.title = name});
    m_blockNames.insert(folded(name));
    return m_storesBlockRecords ? makeBlockRecord(head, 0) : nullptr;
  }
  if (record || !m_storesBlockRecords || head.owner == 0) return record;
  tell(OdDbDxfFinding::kRepair, "block-record-missing", head, "has no block record: one is made");
  return makeBlockRecord(head, head.owner);
}

void RecoverIdentity::repairBlocks() {
  RecoverStructure::Section* blocks = m_structure.section(RecoverStructure::kBlocks);
  if (!blocks) return;
  for (RecoverStructure::Part& block : blocks->parts) {
    repairBlock(block, blockRecordOf(*block.head));
  }
}

void RecoverIdentity::repairBlock(RecoverStructure::Part& block, const RecoverRecord* record) {
  const OdUInt64 owner = record ? record->handle : 0;
  const auto check = [&](RecoverRecord& part) {
    if (part.owner != 0 && part.owner != owner) setOwner(part, owner, "wrong-owner");
  };
  check(*block.head);
  for (RecoverRecord* member : block.members)
    if (!member->isMember()) check(*member);
  check(*block.end);
}

// --- entities and objects ---

void RecoverIdentity::repairEntities() {
  RecoverStructure::Section* entities = m_structure.section(RecoverStructure::kEntities);
  if (!entities) return;
  const auto space = [this](const wchar_t* name) {
    const auto found = m_blockRecordsByName.find(name);
    return found == m_blockRecordsByName.end() ? OdUInt64(0) : found->second->handle;
  };
  const OdUInt64 spaces[] = {space(L"*model_space"), space(L"*paper_space")};
  for (RecoverStructure::Part& part : entities->parts)
    for (RecoverRecord* entity : part.members) {
      if (entity->owner == 0 || entity->isMember()) continue;
      const RecoverRecord* block = blockRecordAt(entity->owner);
      if (block && block->handle == entity->owner) continue;
      setOwner(*entity, block ? block->handle : spaces[entity->inPaperSpace ? 1 : 0], "wrong-owner");
    }
}

void RecoverIdentity::repairObjects() {
  RecoverStructure::Section* section = m_structure.section(RecoverStructure::kObjects);
  if (!section || section->parts.empty()) return;
  std::vector<RecoverRecord*>& objects = section->parts.front().members;
  const auto isDictionary = [](const RecoverRecord* object) { return object->name == "DICTIONARY"; };
  auto root = std::find_if(objects.begin(), objects.end(), [&](const RecoverRecord* object) {
    return isDictionary(object) && object->owner == 0;
  });
  if (root == objects.end())
    root = std::find_if(objects.begin(), objects.end(), [&](const RecoverRecord* object) {
      return isDictionary(object) && !recordAt(object->owner);
    });
  if (root != objects.end() && (*root)->owner != 0) setOwner(**root, 0, "root-dictionary-owner");
  const OdUInt64 rootHandle = root == objects.end() ? 0 : (*root)->handle;

  for (RecoverRecord* object : objects)
    if (object->owner != 0 && !recordAt(object->owner)) setOwner(*object, rootHandle, "wrong-owner");
  // Each walk up the owners stops where an earlier one was, so that all together are linear.
  std::unordered_map<const RecoverRecord*, std::size_t> visited;
  for (std::size_t walk = 0; walk < objects.size(); ++walk)
    for (RecoverRecord* at = objects[walk]; at; at = recordAt(at->owner)) {
      const auto [mark, isNew] = visited.emplace(at, walk);
      if (isNew) continue;
      if (mark->second == walk) {
        tell(OdDbDxfFinding::kRepair, "cyclic-owner", *at,
             "owns itself by way of its owners: it is given to the root dictionary");
        m_context.apply(*at, {.owner = rootHandle});
      }
      break;
    }
}

void RecoverIdentity::repairSeed() {
  if (!m_storesBlockRecords) return;
  const OdUInt64 seed = m_header.seed();
  if (seed != 0 && seed <= m_largestRead)
    m_context.findings.add(OdDbDxfFinding::kRepair, "seed-too-low", m_header.record()->where, 0,
                           "the handle seed " + recoverHexadecimal(seed) +
                               " is not beyond the largest handle " + recoverHexadecimal(m_largestRead) +
                               ": it becomes " + recoverHexadecimal(m_largest + 1));
  if (seed != 0 && seed <= m_largest) m_header.setSeed(m_largest + 1);
}
