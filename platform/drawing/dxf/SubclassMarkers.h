#pragma once
// The subclass markers of the records that releases without markers have.
#include "DbStore.h"

/// Sorts the groups of a record without markers under the markers that newer releases give it. A record that
/// has one already stays as it is.
void dxfAddMarkers(const OdDbStub& stub, OdDbGroupList& groups);
