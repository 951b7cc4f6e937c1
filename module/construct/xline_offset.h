#pragma once
#include "ICmdProcess.h"

namespace construct {

class XlineRun;

/// The mode "Offset" of XLINE: parallels to line objects, each at a distance on the side of a point, or,
/// after "Through", any number of one object's direction through points. The distance and the choice between
/// the two stay for as long as the module is loaded. Ends as cancelled when no line object is picked.
CMD_RUNSTATUS drawOffsets(const XlineRun& run);

} // namespace construct
