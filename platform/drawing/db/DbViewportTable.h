#pragma once
#include "DbSymbolTable.h"
#include "DbViewportTableRecord.h"

/// The viewport configurations of model space: every viewport of a configuration is a record, and all of them
/// carry the configuration's name ("*Active" for the current one).
class OdDbViewportTable : public OdDbSymbolTable {
  ODRX_DECLARE_MEMBERS(OdDbViewportTable);

protected:
  const OdRxClass* recordClass() const override { return OdDbViewportTableRecord::desc(); }
  bool allowsSameNames() const override { return true; }
};
using OdDbViewportTablePtr = OdSmartPtr<OdDbViewportTable>;
