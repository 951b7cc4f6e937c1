#pragma once
#include "DbObjectId.h"

class OdDbDatabase;
class OdDbEntity;

namespace construct {

/// The block record that a command draws in: that of the current space, or model space while one of its
/// viewports is active inside a layout. Throws OdError(eNotThatKindOfClass) when the active viewport is none.
OdDbObjectId targetSpace(const OdDbDatabase& database);

/// Adds an entity to a block record, opened for writing for so long. Its new id. Throws
/// OdError(eNotThatKindOfClass) when the owner is no block record.
OdDbObjectId append(OdDbObjectId owner, OdDbEntity* entity);

} // namespace construct
