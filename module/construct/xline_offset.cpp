#include "xline_offset.h"
#include "DbDatabase.h"
#include "HostUtils.h"
#include "xline_pick.h"
#include "xline_run.h"

namespace construct {
namespace {

struct OffsetSettings {
  double distance = 0;
  bool through = true;
};
/// As the last run left them.
OffsetSettings settings;

/// Asks for the distance, or for "Through". The code of the answer.
int askDistance(const XlineRun& run) {
  constexpr int kFlags = 12;
  const OdString through = res::loadString(IDS_KEY_THROUGH);
  const OdString current =
      settings.through ? through : hostdbRToS(settings.distance, -1, -1, &run.database());
  const OdString prompt = OdString().format(res::loadString(IDS_OFFSET_DISTANCE), current.c_str());
  const int code =
      run.input().GetDistance(nullptr, settings.distance, prompt, through, kFlags, nullptr, nullptr);
  if (code == kHostEdValue) settings.through = false;
  if (code == kHostEdFirstKeyword) settings.through = true;
  return code;
}

CMD_RUNSTATUS drawThroughPoints(const XlineRun& run) {
  const std::optional<OdGeVector3d> direction = pickDirection(run);
  return direction ? run.drawParallels<CAngXlineTracker>(*direction) : kCmdCancelled;
}

/// Asks for the side of the line to draw on. The code of the answer.
int drawBeside(const XlineRun& run, const Line& line) {
  OdGePoint3d side;
  const int code = run.askPoint(IDS_SIDE_TO_OFFSET, side);
  if (code != kHostEdValue) return code;
  const double sign = isOnLeft(&run.database(), side, line) ? 1.0 : -1.0;
  if (const std::optional<Line> offset = offsetLine(run.database(), line, settings.distance * sign))
    run.draw(*offset);
  else
    frame::printMessage(run.input(), IDS_NO_USABLE_OBJECT);
  return code;
}

CMD_RUNSTATUS drawAtDistance(const XlineRun& run) {
  for (bool isFirst = true;; isFirst = false) {
    std::optional<Line> picked;
    int code = pickLine(run, [&](const Line& line) {
      picked = line;
      return true;
    });
    // A run without any object has failed; later, Enter ends it well.
    if (!picked && isFirst) return kCmdCancelled;
    if (picked) code = drawBeside(run, *picked);
    if (code != kHostEdValue) return frame::statusAfter(code);
  }
}

} // namespace

CMD_RUNSTATUS drawOffsets(const XlineRun& run) {
  if (askDistance(run) == kHostEdCancel) return kCmdCancelled;
  return settings.through ? drawThroughPoints(run) : drawAtDistance(run);
}

} // namespace construct
