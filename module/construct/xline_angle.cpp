#include "xline_angle.h"
#include "DbDatabase.h"
#include "HostUtils.h"
#include "xline_pick.h"
#include "xline_run.h"

namespace construct {
namespace {

/// Asks for an angle; Enter gives what a typed 0 gives, the base angle of the drawing. The code of the
/// answer.
int askAngle(const XlineRun& run, const OdChar* keywords, double& angle) {
  angle = run.database().getANGBASE();
  return run.input().GetAngle(nullptr, angle, res::loadString(IDS_XLINE_ANGLE), keywords, 0, nullptr,
                              nullptr);
}

} // namespace

CMD_RUNSTATUS drawAtAngle(const XlineRun& run) {
  OdGeVector3d direction = ucsAxis(run.database(), L"UCSXDIR");
  double angle = 0;
  int code = askAngle(run, res::loadString(IDS_KEY_REFERENCE), angle);
  if (code == kHostEdFirstKeyword) {
    const std::optional<OdGeVector3d> reference = pickDirection(run);
    if (!reference) return kCmdCancelled;
    direction = *reference;
    code = askAngle(run, nullptr, angle);
    angle -= run.database().getANGBASE();
  }
  if (code == kHostEdCancel) return kCmdCancelled;
  return run.drawParallels<CAngXlineTracker>(direction.rotateBy(angle, get_UCSZDIR(&run.database())));
}

} // namespace construct
