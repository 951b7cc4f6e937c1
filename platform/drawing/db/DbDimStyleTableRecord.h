#pragma once
#include "DbSymbolTableRecord.h"

/// A dimension style. Its settings are kept as stored.
class OdDbDimStyleTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbDimStyleTableRecord);

public:
  OdDbSchema schema() const override;
  void appended() override;
};
using OdDbDimStyleTableRecordPtr = OdSmartPtr<OdDbDimStyleTableRecord>;
