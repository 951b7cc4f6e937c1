#pragma once
#include "DbObject.h"

/// The section that all table records share.
extern const OdDbSubclass kOdDbSymbolTableRecordSection;

/// Base of the named records of a drawing's tables (layers, blocks, text styles...).
class OdDbSymbolTableRecord : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbSymbolTableRecord);

public:
  OdString getName() const;
  /// Gives the record another name. Everything in the drawing that refers to it by name follows; finding it
  /// takes one pass over the whole drawing. Throws eInvalidInput for an empty name and eDuplicateRecordName,
  /// comparing without regard to case, when another record of the table has it.
  virtual void setName(const OdString& name);
  /// Whether the record comes from an external reference.
  bool isDependent() const;

protected:
  /// The section with the fields of the record's own class; it holds the name too.
  const OdDbSubclass& ownSection() const { return *schema().back(); }
  /// Sets the name without regard to other records and to references.
  virtual void storeName(const OdString& name);
};
using OdDbSymbolTableRecordPtr = OdSmartPtr<OdDbSymbolTableRecord>;
