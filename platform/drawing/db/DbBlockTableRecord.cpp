#include "DbBlockTableRecord.h"
#include "DbBlockBegin.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbLayout.h"
#include "DbSortentsTable.h"
#include "DbStoreWalk.h"
#include <unordered_set>

ODRX_CONS_DEFINE_MEMBERS(OdDbBlockTableRecord, OdDbSymbolTableRecord, "BLOCK_RECORD")

namespace {

enum Code { kName = 2, kUnits = 70, kExplodable = 280, kScaling = 281, kLayout = 340 };

constexpr OdDbField kFields[] = {
    {kName, OdDbFieldKind::kName, true},        {kLayout, OdDbFieldKind::kObjectId, true},
    {kUnits, OdDbFieldKind::kInt16, true},      {kExplodable, OdDbFieldKind::kInt16, true, 1},
    {kScaling, OdDbFieldKind::kInt16, true, 0},
};
const OdDbSubclass kSection{"AcDbBlockTableRecord", kFields};
const OdDbSubclass* const kSchema[] = {&kOdDbSymbolTableRecordSection, &kSection};

/// Old releases write a dollar sign for the asterisk.
bool isSpaceName(const OdString& name) {
  std::wstring folded = odFoldCase(name.str());
  if (!folded.empty() && folded[0] == L'$') folded[0] = L'*';
  return folded == L"*model_space" || folded.starts_with(L"*paper_space");
}

} // namespace

OdDbSchema OdDbBlockTableRecord::schema() const { return kSchema; }

// --- the BLOCK and ENDBLK records ---

namespace {

OdDbStub* makeEnd(OdDbStub* record, OdDbObject* object) {
  OdDbStore& store = *record->store;
  OdDbStub* stub = store.makeNewStub(object->isA(), object->dxfName(), record);
  object->groups();
  stub->setGroups(OdDbGroupListPtr(&object->mutableGroups()));
  return stub;
}

} // namespace

void OdDbBlockTableRecord::appended() {
  OdDbStub* record = objectId().stub();
  OdDbStore& store = *record->store;
  const OdDbBlockBeginPtr begin = OdDbBlockBegin::createObject();
  begin->setBlockName(getName());
  OdDbStore::BlockEnds& ends = store.blockEnds[record];
  ends.begin = makeEnd(record, begin);
  ends.end = makeEnd(record, OdDbBlockEnd::createObject());
  store.blockOrder.push_back(record);
  store.childrenOf(record);
}

OdDbObjectPtr OdDbBlockTableRecord::openBegin(OdDb::OpenMode mode) const {
  if (mode == OdDb::kForWrite) assertWriteEnabled();
  OdDbStub* record = objectId().stub();
  if (!record) return {};
  const auto ends = record->store->blockEnds.find(record);
  if (ends == record->store->blockEnds.end()) return {};
  return OdDbObjectId(ends->second.begin).openObject(mode, true);
}

void OdDbBlockTableRecord::storeName(const OdString& name) {
  OdDbSymbolTableRecord::storeName(name);
  if (const OdDbBlockBeginPtr begin = openBegin(OdDb::kForWrite)) begin->setBlockName(name);
}

void OdDbBlockTableRecord::swapNameWith(OdDbBlockTableRecord& other) {
  other.assertWriteEnabled();
  const OdString own = getName();
  storeName(other.getName());
  other.storeName(own);
}

OdGePoint3d OdDbBlockTableRecord::origin() const {
  const OdDbBlockBeginPtr begin = openBegin(OdDb::kForRead);
  return begin.isNull() ? OdGePoint3d() : begin->basePoint();
}

void OdDbBlockTableRecord::setOrigin(const OdGePoint3d& origin) {
  const OdDbBlockBeginPtr begin = openBegin(OdDb::kForWrite);
  if (begin.isNull()) throw OdError(eNotInDatabase);
  begin->setBasePoint(origin);
}

OdString OdDbBlockTableRecord::comments() const {
  const OdDbBlockBeginPtr begin = openBegin(OdDb::kForRead);
  return begin.isNull() ? OdString() : begin->comments();
}

void OdDbBlockTableRecord::setComments(const OdString& comments) {
  const OdDbBlockBeginPtr begin = openBegin(OdDb::kForWrite);
  if (begin.isNull()) throw OdError(eNotInDatabase);
  begin->setComments(comments);
}

OdString OdDbBlockTableRecord::pathName() const {
  const OdDbBlockBeginPtr begin = openBegin(OdDb::kForRead);
  return begin.isNull() ? OdString() : begin->pathName();
}

bool OdDbBlockTableRecord::isFromExternalReference() const {
  const OdDbBlockBeginPtr begin = openBegin(OdDb::kForRead);
  return !begin.isNull() &&
         (begin->hasFlag(OdDbBlockBegin::kExternalReference) || begin->hasFlag(OdDbBlockBegin::kOverlay));
}

bool OdDbBlockTableRecord::isFromOverlayReference() const {
  const OdDbBlockBeginPtr begin = openBegin(OdDb::kForRead);
  return !begin.isNull() && begin->hasFlag(OdDbBlockBegin::kOverlay);
}

// --- entities ---

OdDbObjectId OdDbBlockTableRecord::appendOdDbEntity(OdDbEntity* entity) {
  assertWriteEnabled();
  if (!isDBRO()) throw OdError(eNotInDatabase);
  return database()->addOdDbObject(entity, objectId());
}

OdDbObjectIteratorPtr OdDbBlockTableRecord::newIterator(bool atBeginning, bool skipDeleted,
                                                        bool sorted) const {
  OdDbStub* record = objectId().stub();
  if (!record) return OdDbObjectIterator::overList(nullptr);
  if (sorted)
    if (const OdDbSortentsTablePtr order = getSortentsTable()) {
      OdDbObjectIdArray ids;
      order->getFullDrawOrder(ids);
      return OdDbObjectIterator::overIds(std::move(ids), atBeginning, skipDeleted);
    }
  return OdDbObjectIterator::overList(record->store->childrenOf(record), {}, atBeginning, skipDeleted);
}

OdDbSortentsTablePtr OdDbBlockTableRecord::getSortentsTable() const {
  const OdDbDictionaryPtr dictionary = OdDbDictionary::cast(extensionDictionary().openObject());
  return dictionary.isNull() ? OdDbSortentsTablePtr()
                             : OdDbSortentsTable::cast(dictionary->getAt(L"ACAD_SORTENTS", OdDb::kForRead));
}

bool OdDbBlockTableRecord::hasAttributeDefinitions() const {
  const OdDbStub* record = objectId().stub();
  for (OdDbStub* entity = record && record->children ? record->children->first : nullptr; entity;
       entity = entity->next)
    if (entity->dxfName() == "ATTDEF" && !entity->isErased()) return true;
  return false;
}

// --- what the record stands for ---

bool OdDbBlockTableRecord::isLayout() const { return isSpaceName(getName()) || !getLayoutId().isNull(); }

OdDbObjectId OdDbBlockTableRecord::getLayoutId() const { return reference(kSection, kLayout); }
void OdDbBlockTableRecord::setLayoutId(OdDbObjectId layout) { setReference(kSection, kLayout, layout); }

bool OdDbBlockTableRecord::isAnonymous() const {
  const OdString name = getName();
  return !name.isEmpty() && name[0] == L'*' && !isSpaceName(name);
}

bool OdDbBlockTableRecord::explodable() const { return integer(kSection, kExplodable) != 0; }
void OdDbBlockTableRecord::setExplodable(bool explodable) {
  setInteger(kSection, kExplodable, explodable ? 1 : 0);
}

OdDbBlockTableRecord::BlockScaling OdDbBlockTableRecord::blockScaling() const {
  return integer(kSection, kScaling) == kUniform ? kUniform : kAny;
}
void OdDbBlockTableRecord::setBlockScaling(BlockScaling scaling) { setInteger(kSection, kScaling, scaling); }
int OdDbBlockTableRecord::blockInsertUnits() const { return integer(kSection, kUnits); }
void OdDbBlockTableRecord::setBlockInsertUnits(int units) { setInteger(kSection, kUnits, units); }

// --- references ---

namespace {

const OdDbSubclass kReferenceSection{"AcDbBlockReference", {}, "AcDbMInsertBlock"};

/// The references of the drawing, by the folded name of the block that they insert.
using ReferenceIndex = std::unordered_map<std::wstring, std::vector<OdDbStub*>>;

ReferenceIndex indexReferences(OdDbStub* blockTable) {
  ReferenceIndex index;
  odDbVisitList(blockTable->children, [&](OdDbStub* stub) {
    if (stub->dxfName() != "INSERT" || stub->isErased()) return;
    const OdDbGroupListPtr groups = stub->content();
    const int name = odDbGroups::find(*groups, kReferenceSection, kName);
    if (name >= 0) index[odFoldCase(groups->text(name).str())].push_back(stub);
  });
  return index;
}

} // namespace

void OdDbBlockTableRecord::getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly) const {
  OdDbStub* record = objectId().stub();
  if (!record || !record->owner) return;
  const ReferenceIndex index = indexReferences(record->owner);
  // Outwards, each block once: blocks may contain themselves in damaged drawings.
  std::vector<OdDbStub*> blocks{record};
  std::unordered_set<OdDbStub*> met{record};
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    const auto references = index.find(record->store->foldedName(blocks[i]));
    if (references == index.end()) continue;
    for (OdDbStub* reference : references->second) {
      ids.append(OdDbObjectId(reference));
      if (!directOnly && met.insert(reference->owner).second) blocks.push_back(reference->owner);
    }
  }
}
