#pragma once
#include "DbObjectId.h"
#include "PointParser.h"

namespace host {

/// What a typed selection means.
struct Selected {
  OdDbObjectIdArray ids;
  OdGePoint3d at;   ///< where it was picked; the last point for selections without a place
  bool one = false; ///< one object was asked for: by pick, handle or last
  bool readable = true;
  OdString complaint; ///< why one object was not found
};

/// What parseSelection reads, for messages.
inline constexpr OdChar kSelectionForms[] =
    L"all, last, previous, handle 2A3, pick x,y, window x,y x,y or crossing x,y x,y";
inline constexpr OdChar kOneObjectForms[] = L"pick x,y, handle 2A3 or last";

/// Reads a typed selection; its first word may be shortened. A point alone picks the object there.
Selected parseSelection(const OdString& text, const OdDbDatabase& database, const PointFrame& frame,
                        const OdDbObjectIdArray& previous);

} // namespace host
