#include "xline_bisect.h"
#include "direction.h"
#include "xline_run.h"

namespace construct {

CMD_RUNSTATUS drawBisectors(const XlineRun& run) {
  OdGePoint3d vertex;
  OdGePoint3d start;
  int code = run.askPoint(IDS_ANGLE_VERTEX_POINT, vertex);
  if (code != kHostEdValue) return frame::statusAfter(code);
  do {
    code = run.askPoint(IDS_ANGLE_START_POINT, start, &vertex);
    if (code != kHostEdValue) return frame::statusAfter(code);
  } while (!wayTo(vertex, start));
  return run.drawLines(
      IDS_ANGLE_END_POINT, &vertex,
      [&](const OdDbXlinePtr& line) {
        line->setBasePoint(vertex);
        return TrackerObject<CBisXlineTracker>(line, start);
      },
      [&](const OdGePoint3d& end) -> std::optional<Line> {
        const std::optional<OdGeVector3d> half = bisector(vertex, start, end);
        if (!half) return std::nullopt;
        return lineAlong(vertex, *half);
      });
}

} // namespace construct
