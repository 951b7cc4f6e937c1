#pragma once
#include "DbSymbolTableRecord.h"

class OdDbObjectIterator;
class OdDbSymbolTable;

/// Walks over the records of a table in stored order. Records may be added or erased during the walk.
class OdDbSymbolTableIterator : public OdRxObject {
  ODRX_DECLARE_MEMBERS(OdDbSymbolTableIterator);

public:
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const;
  void step(bool forward = true, bool skipDeleted = true);
  OdDbObjectId getRecordId() const;
  /// Null when the walk is done, or the record is erased and `openErased` not set.
  OdDbSymbolTableRecordPtr getRecord(OdDb::OpenMode mode = OdDb::kForRead, bool openErased = false) const;
  /// Makes a record the current one; nothing happens when the table does not hold it.
  void seek(OdDbObjectId record);

private:
  friend class OdDbSymbolTable;
  OdSmartPtr<OdDbObjectIterator> m_records;
};
using OdDbSymbolTableIteratorPtr = OdSmartPtr<OdDbSymbolTableIterator>;

/// Base of the tables of named records. Names are compared without regard to case; records keep their order.
class OdDbSymbolTable : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbSymbolTable);

public:
  /// The record with this name; null when there is none. With `openErased`, an erased record is found where
  /// no other has the name.
  OdDbObjectId getAt(const OdString& name, bool openErased = false) const;
  OdDbSymbolTableRecordPtr getAt(const OdString& name, OdDb::OpenMode mode, bool openErased = false) const;
  bool has(const OdString& name) const { return !getAt(name).isNull(); }
  bool has(OdDbObjectId record) const;
  /// Appends a record. Throws eInvalidInput when it has no name, eDuplicateRecordName, eAlreadyInDb, and
  /// OdError_NotThatKindOfClass when the table holds records of another class.
  OdDbObjectId add(OdDbSymbolTableRecord* record);
  OdDbSymbolTableIteratorPtr newIterator(bool atBeginning = true, bool skipDeleted = true) const;

  OdDbSchema schema() const override;

protected:
  /// The class of the table's records.
  virtual const OdRxClass* recordClass() const = 0;
  /// Whether several records may share a name.
  virtual bool allowsSameNames() const { return false; }
};
using OdDbSymbolTablePtr = OdSmartPtr<OdDbSymbolTable>;

/// Declares the table whose records are `Table`Record.
#define ODDB_DECLARE_SYMBOL_TABLE(Table)                                                                     \
  class Table : public OdDbSymbolTable {                                                                     \
    ODRX_DECLARE_MEMBERS(Table);                                                                             \
                                                                                                             \
  protected:                                                                                                 \
    const OdRxClass* recordClass() const override { return Table##Record::desc(); }                          \
  };                                                                                                         \
  using Table##Ptr = OdSmartPtr<Table>
