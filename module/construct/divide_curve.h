#pragma once
#include "DbObjectId.h"
#include "HostEdInput.h"
#include "ICmdProcess.h"

namespace construct {

/// What marks the places where a curve is divided.
struct DivideMark {
  OdDbObjectId block;   ///< a reference to this block; null: a point
  bool isAlong = false; ///< whether blocks turn with the curve
};

/// Marks the ends of `count` parts of equal length in the block record that holds the curve, those that the
/// curve itself ends at left out. Tells the user when the object is a curve of another kind than those that
/// can be divided, and gives the status of the run. Throws OdError, with nothing marked: eNotThatKindOfClass
/// for what is no curve, the errors of OdDbCurve for one that has no length, eInvalidInput for the block that
/// holds the curve.
CMD_RUNSTATUS divideCurve(HostEdInput& input, OdDbObjectId curve, int count, const DivideMark& mark);

} // namespace construct
