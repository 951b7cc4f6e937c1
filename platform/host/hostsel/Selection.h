#pragma once
#include "DbObjectId.h"
#include "Ge/GePoint3d.h"

class OdDbDatabase;

namespace host {

// Objects of the active space by their place. Objects on frozen layers are never found, those that are
// invisible or on layers that are off only by selectAll and by their handles. A locked layer hides nothing:
// its objects may be read, and it is for commands to refuse to change them. The viewport that stands for the
// sheet of a layout is no object of the user's.
//
// Windows and picks look along the Z axis of the current coordinate system at what can be seen of objects:
// the lines of curves, whatever their width; the boxes of texts; the areas of solids, hatches, images and
// wipeouts; what is in blocks, by the layers that it is on there; of objects that the library does not know,
// the box around their points.

/// All objects, as they are stored.
OdDbObjectIdArray selectAll(const OdDbDatabase& database);

/// The objects that lie wholly inside the rectangle between two points (world coordinates), as they are
/// stored; with `crossing` also those of which some part reaches into it. Lines without end are never inside.
OdDbObjectIdArray selectWindow(const OdDbDatabase& database, const OdGePoint3d& corner,
                               const OdGePoint3d& opposite, bool crossing);

/// The object at a point (world coordinates): of those that reach into the pick box around it, the one that
/// comes nearest to the point, and of equals the one drawn last. The inside of an area is farther away than
/// any line in the pick box. Null when there is none.
OdDbObjectId pickAt(const OdDbDatabase& database, const OdGePoint3d& point);

/// The newest object of the active space; null in an empty drawing.
OdDbObjectId lastObject(const OdDbDatabase& database);

/// Whether an object may be selected by its handle.
enum class Standing {
  selectable,
  elsewhere, ///< it is no object of the active space
  frozen,
};
Standing standingOf(const OdDbDatabase& database, OdDbObjectId id);

} // namespace host
