#include "DbDatabase.h"
#include "DbEntity.h"
#include "DbIdMapping.h"
#include "DbStore.h"

ODRX_CONS_DEFINE_MEMBERS(OdDbDatabase, OdRxObject, "")

OdDbDatabase::OdDbDatabase() : m_store(std::make_unique<OdDbStore>(this)) {}
OdDbDatabase::~OdDbDatabase() = default;

OdString OdDbDatabase::getFilename() const { return m_store->fileName; }
OdDb::DwgVersion OdDbDatabase::originalFileVersion() const { return m_store->version; }

OdDbObjectId OdDbDatabase::tableId(const char* name) const { return OdDbObjectId(m_store->table(name)); }

OdDbObjectId OdDbDatabase::getOdDbObjectId(OdDbHandle handle) const {
  return OdDbObjectId(m_store->find(handle));
}

// --- adding objects ---

namespace {

/// Entities stand in the list of what contains them, table records in their table, everything else in
/// OBJECTS.
bool isContained(const OdDbStub* stub) {
  return (stub->flags & OdDbStub::kEntity) || (stub->owner && stub->owner->dxfName() == "TABLE");
}

/// Entities of paper spaces say so in their groups (67), because files keep both spaces in one section.
void markSpace(OdDbStub* entity, OdDbGroupList& groups) {
  constexpr int kPaperSpaceCode = 67;
  OdDbStub* owner = entity->owner;
  if (owner && (owner->flags & OdDbStub::kEntity)) owner = owner->owner;
  const std::wstring& space = entity->store->foldedName(owner);
  const bool paper = space.starts_with(odFoldCase(L"*Paper_Space")) || space == odFoldCase(L"$Paper_Space");
  const int at = odDbGroups::find(groups, kOdDbEntitySection, kPaperSpaceCode);
  const OdDbSubclass* const sections[] = {&kOdDbEntitySection};
  if (paper && at < 0)
    groups.insert(odDbGroups::place(groups, sections, kOdDbEntitySection, kPaperSpaceCode),
                  OdDbGroup::ofInteger(kPaperSpaceCode, 1));
  else if (!paper && at >= 0)
    groups.erase(at, at + 1);
}

} // namespace

OdDbObjectId OdDbDatabase::addOdDbObject(OdDbObject* object, OdDbObjectId owner, OdDbHandle handle) {
  if (object->m_stub) throw OdError(eAlreadyInDb);
  if (!owner.isNull() && owner.database() != this) throw OdError(eWrongDatabase);
  object->groups();
  OdDbStub* stub = m_store->makeNewStub(object->isA(), object->dxfName(), owner.stub(), handle);
  stub->setGroups(object->m_groups);
  m_store->attach(stub, object);
  object->m_writable = true;
  if (stub->flags & OdDbStub::kEntity) markSpace(stub, *object->m_groups);
  if (!isContained(stub)) stub->flags |= OdDbStub::kInObjects;
  m_store->link(stub);
  object->appended();
  return OdDbObjectId(stub);
}

// --- deep cloning ---

namespace {

bool isOwningReference(int code) { return code >= 350 && code <= 369; }

class DeepCloner {
public:
  DeepCloner(OdDbStore& store, OdDbIdMapping& map) : m_store(store), m_map(map) {}

  void clone(OdDbStub* source, OdDbStub* owner, bool primary) {
    OdDbStub* copy = m_store.makeNewStub(m_store.types[source->type].cls, source->dxfName(), owner);
    copy->flags |= static_cast<OdUInt16>(source->flags & (OdDbStub::kEntity | OdDbStub::kInObjects));
    OdDbGroupListPtr groups(new OdDbGroupList(*source->content()));
    if (primary && (copy->flags & OdDbStub::kEntity)) markSpace(copy, *groups);
    copy->setGroups(groups);
    m_store.link(copy);
    m_map.assign({OdDbObjectId(source), OdDbObjectId(copy), primary});
    m_copies.push_back(copy);
    cloneOwned(*groups, copy);
    if (source->children)
      for (OdDbStub* child = source->children->first; child; child = child->next)
        if (!child->isErased()) clone(child, copy, false);
  }

  /// References among the copied objects are known only when all are copied.
  void translate() {
    for (OdDbStub* copy : m_copies) {
      dropForeignReactors(*copy->groups);
      for (OdDbGroup& group : copy->groups->items)
        if (group.kind == OdDbGroupKind::kHandle && odDbIsReference(group.code) && !group.isIdentity())
          if (const OdDbObjectId target = copyOf(group.handle); !target.isNull())
            group.handle = target.getHandle();
    }
  }

private:
  OdDbObjectId copyOf(OdUInt64 handle) const { return m_map.value(OdDbObjectId(m_store.find(handle))); }

  void cloneOwned(const OdDbGroupList& groups, OdDbStub* owner) {
    for (const OdDbGroup& group : groups.items) {
      if (group.kind != OdDbGroupKind::kHandle || !isOwningReference(group.code)) continue;
      OdDbStub* owned = m_store.find(group.handle);
      const bool wanted = owned && (owned->flags & OdDbStub::kInObjects) && !owned->isErased();
      if (wanted && copyOf(group.handle).isNull()) clone(owned, owner, false);
    }
  }

  /// A reactor that was not copied along watches the source, not the copy.
  void dropForeignReactors(OdDbGroupList& groups) const {
    auto [first, last] = odDbGroups::braces(groups, "{ACAD_REACTORS");
    for (int i = last - 1; first >= 0 && i >= first; --i)
      if (copyOf(groups[i].handle).isNull()) {
        groups.erase(i, i + 1);
        --last;
      }
    if (first >= 0 && first == last) groups.erase(first - 1, last + 1);
  }

  OdDbStore& m_store;
  OdDbIdMapping& m_map;
  std::vector<OdDbStub*> m_copies;
};

} // namespace

void OdDbDatabase::deepCloneObjects(const OdDbObjectIdArray& ids, OdDbObjectId owner, OdDbIdMapping& map) {
  DeepCloner cloner(*m_store, map);
  for (const OdDbObjectId& id : ids) {
    if (id.isErased()) throw OdError(id.isNull() ? eNullObjectId : eWasErased);
    cloner.clone(id.stub(), owner.stub(), true);
  }
  cloner.translate();
}

// --- undo and transactions ---

void OdDbDatabase::startUndoRecord() { m_store->undo.startRecord(); }
void OdDbDatabase::setUndoMark() { m_store->undo.setMark(); }
bool OdDbDatabase::undo() { return m_store->undo.undo(false); }
bool OdDbDatabase::undoBack() { return m_store->undo.undo(true); }
void OdDbDatabase::cancelUndoRecord() { m_store->undo.cancelRecord(); }
bool OdDbDatabase::redo() { return m_store->undo.redo(); }
bool OdDbDatabase::hasUndo() const { return m_store->undo.hasUndo(); }
bool OdDbDatabase::hasRedo() const { return m_store->undo.hasRedo(); }
void OdDbDatabase::clearUndo() { m_store->undo.clear(); }
void OdDbDatabase::disableUndoRecording(bool disable) { m_store->undo.setRecording(!disable); }
void OdDbDatabase::startTransaction() { m_store->undo.startTransaction(); }
void OdDbDatabase::endTransaction() { m_store->undo.endTransaction(); }
void OdDbDatabase::abortTransaction() { m_store->undo.abortTransaction(); }
int OdDbDatabase::numActiveTransactions() const { return m_store->undo.transactions(); }
