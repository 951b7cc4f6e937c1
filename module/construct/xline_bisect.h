#pragma once
#include "ICmdProcess.h"

namespace construct {

class XlineRun;

/// The mode "Bisect" of XLINE: lines through a vertex that halve the angles between a start point and end
/// points. A start point on the vertex, and end points to which there is no bisector, are asked for again.
CMD_RUNSTATUS drawBisectors(const XlineRun& run);

} // namespace construct
