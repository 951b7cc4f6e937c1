#include "drawing_checks.h"
#include "DbEntity.h"
#include "DbStoreWalk.h"
#include "DxfOutput.h"
#include "DxfReader.h"
#include "DxfStoreWriter.h"
#include "DxfVerifier.h"
#include "check.h"
#include <unordered_set>

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

std::string describe(const OdDbStub& stub) {
  return stub.dxfName() + " " + OdDbHandle(stub.handle).ascii().toUtf8();
}

/// The end mark of a sequence goes with its last member; old releases have no place for block records.
bool mayBeLeftOut(const OdDbStub& stub) {
  if (stub.isErased() || (stub.flags & OdDbStub::kDetached) || stub.dxfName() == "SEQEND") return true;
  const OdDbStore& store = *stub.store;
  return !store.hasBlockRecords &&
         ((stub.flags & OdDbStub::kInObjects) || &stub == store.table("BLOCK_RECORD") ||
          stub.owner == store.table("BLOCK_RECORD"));
}

void checkNothingLost(const OdDbStore& store, const DxfStoreWriter& writer) {
  const std::unordered_set<const OdDbStub*> written(writer.written().begin(), writer.written().end());
  check(written.size() == writer.written().size(), "an object was written twice");
  odDbVisitAll(store, [&written](const OdDbStub* stub) {
    check(written.count(stub) || mayBeLeftOut(*stub), ("writing lost " + describe(*stub)).c_str());
  });
}

void checkWritten(OdDbDatabase& drawing) {
  const auto bytes = std::make_shared<std::string>();
  const std::unique_ptr<DxfOutput> output = DxfOutput::create(
      [&bytes](std::string_view piece) { *bytes += piece; }, DxfStoreWriter::styleOf(drawing.store()));
  DxfStoreWriter writer(drawing.store(), *output);
  writer.write();
  checkNothingLost(drawing.store(), writer);
  try {
    dxfVerify(drawing.store(), writer, std::make_shared<DxfText>(DxfText{*bytes, L"written.dxf"}),
              [](const char*) {});
    odDbReadBytes(*OdDbDatabase::createObject(), *bytes, nullptr, L"written.dxf");
  } catch (const OdError& error) {
    check(false, error.what());
  }
}

} // namespace

void checkDrawing(OdDbDatabase& drawing) {
  openAll(drawing, OdDb::kForRead);
  checkWritten(drawing);
  openAll(drawing, OdDb::kForWrite);
  checkWritten(drawing);
}
