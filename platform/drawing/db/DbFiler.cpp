#include "DbFiler.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbFiler, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbDxfFiler, OdDbFiler)

bool OdDbDxfFiler::wrStored(const OdDbGroupList&, const OdDbGroup&) { return false; }
