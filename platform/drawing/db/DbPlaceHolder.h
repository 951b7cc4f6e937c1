#pragma once
#include "DbObject.h"

/// An object without properties: it lends its identity to a name, as plot style names need.
class OdDbPlaceHolder : public OdDbObject {
  ODRX_DECLARE_MEMBERS(OdDbPlaceHolder);
};
using OdDbPlaceHolderPtr = OdSmartPtr<OdDbPlaceHolder>;
