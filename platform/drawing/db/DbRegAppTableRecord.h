#pragma once
#include "DbSymbolTableRecord.h"

/// An application that may attach extended data to objects.
class OdDbRegAppTableRecord : public OdDbSymbolTableRecord {
  ODRX_DECLARE_MEMBERS(OdDbRegAppTableRecord);

public:
  OdDbSchema schema() const override;
};
using OdDbRegAppTableRecordPtr = OdSmartPtr<OdDbRegAppTableRecord>;
