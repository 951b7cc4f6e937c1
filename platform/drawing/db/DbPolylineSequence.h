#pragma once
// Polylines with a record for each vertex. One record name stands for plane and spatial polylines and for two
// kinds of meshes, and another for the vertices of all of them. Internal to the drawing library.
#include "DbStub.h"

class OdDbEntity;
class OdRxClass;

namespace odDbSequences {
/// Whether the name is one of the two.
bool isShared(std::string_view dxfName);
/// The class for such a record; that for entities kept as read for meshes and their vertices.
const OdRxClass* classOf(const OdDbStub& stub);
/// The first object of a resident sequence that is not erased, and the one behind another; end marks are
/// passed over.
OdDbStub* firstOf(const OdDbEntity& sequence);
OdDbStub* nextOf(OdDbStub* member);
/// Appends a vertex, and the end mark of the sequence where it is missing. Throws eNotInDatabase unless the
/// sequence is resident.
OdDbObjectId append(OdDbEntity& sequence, OdDbEntity* vertex);
/// Changes whenever something of the sequence may have changed.
OdUInt64 revision(const OdDbEntity& sequence);
} // namespace odDbSequences
