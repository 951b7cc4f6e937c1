#pragma once
#include "DbEntity.h"

/// The end mark of the attributes of a reference, or of the vertices of an old polyline. Owned by what it
/// ends, and never shown by iterators.
class OdDbSequenceEnd : public OdDbEntity {
  ODRX_DECLARE_MEMBERS(OdDbSequenceEnd);
};
using OdDbSequenceEndPtr = OdSmartPtr<OdDbSequenceEnd>;
