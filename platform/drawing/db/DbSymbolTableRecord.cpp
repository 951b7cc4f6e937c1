#include "DbSymbolTableRecord.h"
#include "DbRenameReferences.h"
#include "DbStore.h"

const OdDbSubclass kOdDbSymbolTableRecordSection{"AcDbSymbolTableRecord", {}};

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbSymbolTableRecord, OdDbObject)

namespace {
constexpr int kNameCode = 2;
constexpr int kFlagsCode = 70;
constexpr int kDependentBit = 16;
} // namespace

OdString OdDbSymbolTableRecord::getName() const { return text(ownSection(), kNameCode); }

bool OdDbSymbolTableRecord::isDependent() const { return flag(ownSection(), kFlagsCode, kDependentBit); }

void OdDbSymbolTableRecord::storeName(const OdString& name) {
  setText(ownSection(), kNameCode, name);
  if (isDBRO()) objectId().stub()->store->refreshRecordName(objectId().stub());
}

void OdDbSymbolTableRecord::setName(const OdString& name) {
  assertWriteEnabled();
  if (name.isEmpty()) throw OdError(eInvalidInput, L"A table record needs a name.");
  const OdString old = getName();
  if (name == old) return;
  if (isDBRO()) {
    OdDbStub* stub = objectId().stub();
    const OdDbStub* other = stub->store->findRecord(stub->owner, name.str());
    if (other && other != stub) throw OdError(eDuplicateRecordName);
    if (!old.isEmpty()) odDbRenameReferences(stub->owner, old, name);
  }
  storeName(name);
}
