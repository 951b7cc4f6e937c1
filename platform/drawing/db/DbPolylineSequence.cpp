#include "DbPolylineSequence.h"
#include "Db2dPolyline.h"
#include "Db3dPolyline.h"
#include "DbDatabase.h"
#include "DbProxyEntity.h"
#include "DbSequenceEnd.h"
#include "DbStore.h"

namespace odDbSequences {

namespace {

constexpr std::string_view kPolyline = "POLYLINE";
constexpr std::string_view kVertex = "VERTEX";
constexpr std::string_view kEndMark = "SEQEND";
constexpr int kMarkerCode = 100;
constexpr int kFlagsCode = 70;

struct Kind {
  std::string_view marker;
  const OdRxClass* cls;
};

OdDbStub* shown(OdDbStub* member) {
  while (member && (member->isErased() || member->dxfName() == kEndMark)) member = member->next;
  return member;
}

} // namespace

bool isShared(std::string_view dxfName) { return dxfName == kPolyline || dxfName == kVertex; }

const OdRxClass* classOf(const OdDbStub& stub) {
  const Kind kinds[] = {{"AcDb2dPolyline", OdDb2dPolyline::desc()},
                        {"AcDb3dPolyline", OdDb3dPolyline::desc()},
                        {"AcDb2dVertex", OdDb2dVertex::desc()},
                        {"AcDb3dPolylineVertex", OdDb3dPolylineVertex::desc()},
                        {"AcDbPolygonMesh", OdDbProxyEntity::desc()},
                        {"AcDbPolyFaceMesh", OdDbProxyEntity::desc()},
                        {"AcDbPolygonMeshVertex", OdDbProxyEntity::desc()},
                        {"AcDbPolyFaceMeshVertex", OdDbProxyEntity::desc()},
                        {"AcDbFaceRecord", OdDbProxyEntity::desc()}};
  const OdDbGroupListPtr head = stub.contentUpTo(kFlagsCode);
  OdInt64 flags = 0;
  for (const OdDbGroup& group : head->items) {
    if (group.code == kMarkerCode)
      for (const Kind& kind : kinds)
        if (group.bytes() == kind.marker) return kind.cls;
    if (group.code == kFlagsCode && group.kind == OdDbGroupKind::kInteger) flags = group.integer;
  }
  // Old releases have no markers: the flags of the polyline tell what it is, and what its vertices are.
  constexpr int kSpatial = 8;
  constexpr int kMeshes = 16 | 64;
  if (stub.dxfName() == kVertex) {
    const bool isMember = stub.owner && stub.owner->dxfName() == kPolyline;
    const OdRxClass* owner = isMember ? classOf(*stub.owner) : nullptr;
    if (owner == OdDb2dPolyline::desc()) return OdDb2dVertex::desc();
    return owner == OdDb3dPolyline::desc() ? OdDb3dPolylineVertex::desc() : OdDbProxyEntity::desc();
  }
  if (flags & kMeshes) return OdDbProxyEntity::desc();
  return flags & kSpatial ? OdDb3dPolyline::desc() : OdDb2dPolyline::desc();
}

OdDbStub* firstOf(const OdDbEntity& sequence) {
  const OdDbStub* stub = sequence.objectId().stub();
  return stub && stub->children ? shown(stub->children->first) : nullptr;
}

OdDbStub* nextOf(OdDbStub* member) { return shown(member->next); }

OdDbObjectId append(OdDbEntity& sequence, OdDbEntity* vertex) {
  if (!sequence.isDBRO()) throw OdError(eNotInDatabase);
  sequence.assertWriteEnabled();
  OdDbDatabase* database = sequence.database();
  const OdDbObjectId id = database->addOdDbObject(vertex, sequence.objectId());
  const OdDbStub* last = sequence.objectId().stub()->children->last;
  if (last->dxfName() != kEndMark || last->isErased()) {
    const OdDbSequenceEndPtr end = OdDbSequenceEnd::createObject();
    end->setLayer(sequence.layer());
    database->addOdDbObject(end, sequence.objectId());
  }
  return id;
}

OdUInt64 revision(const OdDbEntity& sequence) {
  const OdDbStub* stub = sequence.objectId().stub();
  return stub ? stub->store->revision : sequence.revision();
}

} // namespace odDbSequences
