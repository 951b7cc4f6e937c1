#include "DbDatabase.h"
#include "DbViewport.h"
#include "HostUtils.h"

bool hostdbGetVar(const OdDbDatabase* database, const OdChar* name, OdGeVector3d& value) {
  const OdString wanted = name;
  if (wanted.iCompare(L"UCSXDIR") == 0)
    value = database->getUCSXDIR();
  else if (wanted.iCompare(L"UCSYDIR") == 0)
    value = database->getUCSYDIR();
  else if (wanted.iCompare(L"UCSORG") == 0)
    value = database->getUCSORG().asVector();
  else
    return false;
  return true;
}

OdGeVector3d get_UCSZDIR(const OdDbDatabase* database) {
  return database->getUCSXDIR().crossProduct(database->getUCSYDIR()).normal();
}

OdDbObjectId getActiveBTRId(const OdDbDatabase* database) {
  const OdDbObjectId space = database->getActiveLayoutBTRId();
  const OdDbObjectId viewport = database->activeViewportId();
  if (viewport.isNull()) return space;
  // Number 1 is the sheet itself.
  const OdSmartPtr<OdDbViewport> opened = viewport.safeOpenObject();
  return opened->number() > 1 ? database->getModelSpaceId() : space;
}
