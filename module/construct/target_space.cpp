#include "target_space.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbEntity.h"
#include "DbViewport.h"

namespace construct {

OdDbObjectId targetSpace(const OdDbDatabase& database) {
  const OdDbObjectId space = database.getActiveLayoutBTRId();
  if (space != database.getPaperSpaceId()) return space;
  // A layout that was never shown has no viewports, not even the one of its sheet.
  const OdDbObjectId active = database.activeViewportId();
  if (active.isNull()) return space;
  // Number 1 is the sheet of the layout, higher ones are windows to model space.
  const OdSmartPtr<OdDbViewport> viewport = active.safeOpenObject();
  return viewport->number() > 1 ? database.getModelSpaceId() : space;
}

OdDbObjectId append(OdDbObjectId owner, OdDbEntity* entity) {
  const OdSmartPtr<OdDbBlockTableRecord> record = owner.safeOpenObject(OdDb::kForWrite);
  return record->appendOdDbEntity(entity);
}

} // namespace construct
