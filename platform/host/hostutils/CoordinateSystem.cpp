#include "DbDatabase.h"
#include "DbViewport.h"
#include "HostUtils.h"

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
