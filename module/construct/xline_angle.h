#pragma once
#include "ICmdProcess.h"

namespace construct {

class XlineRun;

/// The mode "Ang" of XLINE: lines at an angle that is counted as all angles of the drawing are, or, after
/// "Reference", from the direction of a line object in the XY plane of the current coordinate system; Enter
/// then draws parallels to it. Ends as cancelled when no line object is picked.
CMD_RUNSTATUS drawAtAngle(const XlineRun& run);

} // namespace construct
