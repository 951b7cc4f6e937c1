#pragma once
#include "OdString.h"

class OdDbDatabase;
class OdDbEntity;
class OdGePoint3d;

namespace host {

/// A point (world coordinates) as users of the drawing write it: in the current coordinate system, in the
/// drawing's units; z only where there is one.
OdString pointText(const OdGePoint3d& point, const OdDbDatabase& database);

/// An entity in one line, such as "ray from 0,0 towards 3,4". Of lines without end, the place nearest to
/// `cursor` (world coordinates) tells the direction.
OdString entityText(const OdDbEntity& entity, const OdGePoint3d& cursor, const OdDbDatabase& database);

} // namespace host
