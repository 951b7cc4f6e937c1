#include "drawing_checks.h"
#include "DbEntity.h"
#include "DbStoreWalk.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include "check.h"

namespace {

void openAll(OdDbDatabase& drawing, OdDb::OpenMode mode) {
  odDbVisitAll(drawing.store(), [mode](OdDbStub* stub) {
    const OdDbObjectPtr object = OdDbObjectId(stub).safeOpenObject(mode);
    if (mode == OdDb::kForWrite) object->mutableGroups();
    OdGeExtents3d extents;
    if (const OdDbEntityPtr entity = OdDbEntity::cast(object); !entity.isNull())
      entity->getGeomExtents(extents);
  });
}

void checkWritten(OdDbDatabase& drawing) {
  const std::string bytes = odDbWriteBytes(drawing);
  const OdDbDatabasePtr again = OdDbDatabase::createObject();
  try {
    odDbReadBytes(*again, bytes, nullptr, L"written.dxf");
  } catch (const OdError& error) {
    check(false, error.what());
  }
  check(again->store().objectCount() == drawing.store().objectCount(),
        "objects were lost or added by writing");
}

} // namespace

void checkDrawing(OdDbDatabase& drawing) {
  openAll(drawing, OdDb::kForRead);
  checkWritten(drawing);
  openAll(drawing, OdDb::kForWrite);
  checkWritten(drawing);
}
