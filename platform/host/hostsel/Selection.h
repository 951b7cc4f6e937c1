#pragma once
#include "DbObjectId.h"
#include "Ge/GePoint3d.h"

class OdDbDatabase;

namespace host {

// Objects of the active space by their place. Objects on frozen layers are never found, those that are
// invisible or on layers that are off only by selectAll. A locked layer hides nothing: its objects may be
// read. The viewport that stands for the sheet of a layout is no object of the user's. Windows and picks look
// along the Z axis of the current coordinate system at the extents of objects; objects without extents are
// passed over.

/// All objects, in drawing order.
OdDbObjectIdArray selectAll(const OdDbDatabase& database);

/// The objects inside the rectangle between two points (world coordinates); with `crossing` also those that
/// reach into it. In drawing order.
OdDbObjectIdArray selectWindow(const OdDbDatabase& database, const OdGePoint3d& corner,
                               const OdGePoint3d& opposite, bool crossing);

/// The object at a point (world coordinates): of those whose extents hold it, allowing for the width of a
/// cursor, the smallest, and of equals the one drawn last. Null when there is none.
OdDbObjectId pickAt(const OdDbDatabase& database, const OdGePoint3d& point);

/// The object of the active space that was drawn last; null in an empty drawing.
OdDbObjectId lastObject(const OdDbDatabase& database);

/// Whether an object stands in the active space and may be selected by its handle.
bool isSelectable(const OdDbDatabase& database, OdDbObjectId id);

} // namespace host
