#include "DbSymbolTable.h"
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDimStyleTable.h"
#include "DbLayerTable.h"
#include "DbLinetypeTable.h"
#include "DbObjectIterator.h"
#include "DbRegAppTable.h"
#include "DbStore.h"
#include "DbTextStyleTable.h"
#include "DbUCSTable.h"
#include "DbViewTable.h"
#include "DbViewportTable.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbSymbolTable, OdDbObject)
ODRX_CONS_DEFINE_MEMBERS(OdDbSymbolTableIterator, OdRxObject, "")
ODRX_CONS_DEFINE_MEMBERS(OdDbBlockTable, OdDbSymbolTable, "TABLE BLOCK_RECORD")
ODRX_CONS_DEFINE_MEMBERS(OdDbLayerTable, OdDbSymbolTable, "TABLE LAYER")
ODRX_CONS_DEFINE_MEMBERS(OdDbLinetypeTable, OdDbSymbolTable, "TABLE LTYPE")
ODRX_CONS_DEFINE_MEMBERS(OdDbTextStyleTable, OdDbSymbolTable, "TABLE STYLE")
ODRX_CONS_DEFINE_MEMBERS(OdDbDimStyleTable, OdDbSymbolTable, "TABLE DIMSTYLE")
ODRX_CONS_DEFINE_MEMBERS(OdDbUCSTable, OdDbSymbolTable, "TABLE UCS")
ODRX_CONS_DEFINE_MEMBERS(OdDbViewTable, OdDbSymbolTable, "TABLE VIEW")
ODRX_CONS_DEFINE_MEMBERS(OdDbViewportTable, OdDbSymbolTable, "TABLE VPORT")
ODRX_CONS_DEFINE_MEMBERS(OdDbRegAppTable, OdDbSymbolTable, "TABLE APPID")

namespace {

constexpr int kCountCode = 70;
constexpr OdDbField kFields[] = {{kCountCode, OdDbFieldKind::kInt16, true}};
const OdDbSubclass kSection{"AcDbSymbolTable", kFields};
const OdDbSubclass* const kSchema[] = {&kSection};

} // namespace

OdDbSchema OdDbSymbolTable::schema() const { return kSchema; }

OdDbObjectId OdDbSymbolTable::getAt(const OdString& name, bool openErased) const {
  OdDbStub* table = objectId().stub();
  if (!table || name.isEmpty()) return {};
  OdDbStub* record = table->store->findRecord(table, name.str());
  if (!record && openErased && table->children) {
    const std::wstring folded = odFoldCase(name.str());
    record = table->children->first;
    while (record && table->store->foldedName(record) != folded) record = record->next;
  }
  return OdDbObjectId(record);
}

OdDbSymbolTableRecordPtr OdDbSymbolTable::getAt(const OdString& name, OdDb::OpenMode mode,
                                                bool openErased) const {
  return getAt(name, openErased).openObject(mode, openErased);
}

bool OdDbSymbolTable::has(OdDbObjectId record) const {
  return !record.isErased() && isDBRO() && record.stub()->owner == objectId().stub();
}

OdDbObjectId OdDbSymbolTable::add(OdDbSymbolTableRecord* record) {
  assertWriteEnabled();
  if (!isDBRO()) throw OdError(eNotInDatabase);
  if (!record->isKindOf(recordClass())) throw OdError_NotThatKindOfClass(record->isA(), recordClass());
  const OdString name = record->getName();
  if (name.isEmpty()) throw OdError(eInvalidInput, L"A table record needs a name.");
  if (!allowsSameNames() && has(name)) throw OdError(eDuplicateRecordName);
  const OdDbObjectId id = database()->addOdDbObject(record, objectId());
  setInteger(kSection, kCountCode, integer(kSection, kCountCode) + 1);
  return id;
}

OdDbSymbolTableIteratorPtr OdDbSymbolTable::newIterator(bool atBeginning, bool skipDeleted) const {
  OdDbSymbolTableIteratorPtr iterator = OdDbSymbolTableIterator::createObject();
  OdDbStub* table = objectId().stub();
  const OdDbStubList* records = table ? table->store->childrenOf(table) : nullptr;
  iterator->m_records = OdDbObjectIterator::overList(records, {}, atBeginning, skipDeleted);
  return iterator;
}

void OdDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted) {
  m_records->start(atBeginning, skipDeleted);
}
bool OdDbSymbolTableIterator::done() const { return m_records->done(); }
void OdDbSymbolTableIterator::step(bool forward, bool skipDeleted) { m_records->step(forward, skipDeleted); }
OdDbObjectId OdDbSymbolTableIterator::getRecordId() const { return m_records->objectId(); }
OdDbSymbolTableRecordPtr OdDbSymbolTableIterator::getRecord(OdDb::OpenMode mode, bool openErased) const {
  return getRecordId().openObject(mode, openErased);
}
void OdDbSymbolTableIterator::seek(OdDbObjectId record) { m_records->seek(record); }
