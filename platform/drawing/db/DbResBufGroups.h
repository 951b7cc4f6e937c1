#pragma once
// Between groups and lists of typed values. Internal to the drawing library.
#include "DbGroup.h"
#include "DbResBuf.h"

namespace odDbResBufs {
/// The groups [first, last) as a list; the three coordinates of a point are one item. Null for an empty
/// range.
OdResBufPtr read(const OdDbGroupList& groups, int first, int last);
/// Throws eInvalidInput when a value's type does not fit its group code.
void check(const OdResBuf* chain);
/// Inserts a list that `check` accepts before the group at `index`, and returns the index behind it. Stops at
/// `end`, an item of the list, or at its end.
int insert(OdDbGroupList& groups, int index, const OdResBuf* chain, const OdResBuf* end = nullptr);
} // namespace odDbResBufs
