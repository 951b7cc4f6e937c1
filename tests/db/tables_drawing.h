#pragma once
// A small drawing made record by record, so that tests also get what no front door would make.
#include "DbBlockTable.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbLayerTable.h"
#include "DbLayout.h"
#include "DbLinetypeTable.h"
#include "DbStore.h"
#include "DbTextStyleTable.h"
#include <gmock/gmock.h>
#include <initializer_list>

/// All tables, a root dictionary, layer 0, Continuous, Standard, model space and one sheet.
class SmallDrawing {
public:
  OdDbDatabasePtr db = OdDbDatabase::createObject();

  SmallDrawing();
  OdDbStore& store() const { return db->store(); }

  template <class Record>
  OdDbObjectId addRecord(OdDbObjectId table, const OdString& name) {
    const OdSmartPtr<Record> record = Record::createObject();
    record->setName(name);
    const OdDbSymbolTablePtr open = table.safeOpenObject(OdDb::kForWrite);
    return open->add(record);
  }
  OdDbObjectId addLayer(const OdString& name) {
    return addRecord<OdDbLayerTableRecord>(db->getLayerTableId(), name);
  }
  OdDbObjectId addBlock(const OdString& name) {
    return addRecord<OdDbBlockTableRecord>(db->getBlockTableId(), name);
  }
  OdDbBlockTableRecordPtr block(OdDbObjectId id) { return id.safeOpenObject(OdDb::kForWrite); }
  OdDbDictionaryPtr root() { return db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite); }

  struct Group {
    int code;
    std::variant<const char*, double, int, OdDbObjectId> value;
  };
  /// A record as a file could hold it: its groups are exactly these, behind handle and owner.
  OdDbObjectId addRaw(const char* dxfName, OdDbObjectId owner, std::initializer_list<Group> groups,
                      bool entity = true);
  OdDbObjectId addReference(OdDbObjectId owner, const char* block) {
    return addRaw("INSERT", owner, {{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbBlockReference"}, {2, block}});
  }
  OdDbObjectId addPoint(OdDbObjectId owner) {
    return addRaw("POINT", owner, {{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbPoint"}});
  }
  void setHeader(const char* name, std::initializer_list<Group> groups);
};

/// The names of a table's records in order.
std::vector<std::wstring> namesOf(OdDbObjectId table);
/// "code:value" of the groups that an object writes.
std::vector<std::string> writtenGroups(OdDbObjectId id);
