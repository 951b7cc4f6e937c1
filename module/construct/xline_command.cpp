#include "xline_command.h"
#include "direction.h"
#include "xline_angle.h"
#include "xline_bisect.h"
#include "xline_offset.h"
#include "xline_run.h"

namespace {

using construct::Line;
using construct::XlineRun;

CMD_RUNSTATUS drawThroughStart(const XlineRun& run, const OdGePoint3d& start) {
  return run.drawLines(
      IDS_SPECIFY_THROUGH_POINT, &start,
      [&](const OdDbXlinePtr& line) {
        line->setBasePoint(start);
        return construct::TrackerObject<CXlineTracker>(line);
      },
      [&](const OdGePoint3d& through) -> std::optional<Line> {
        const std::optional<OdGeVector3d> way = construct::wayTo(start, through);
        if (!way) return std::nullopt;
        return construct::lineAlong(start, *way);
      });
}

CMD_RUNSTATUS drawHorizontals(const XlineRun& run) {
  return run.drawParallels<CHorXlineTracker>(construct::ucsAxis(run.database(), L"UCSXDIR"));
}

CMD_RUNSTATUS drawVerticals(const XlineRun& run) {
  return run.drawParallels<CVertXlineTracker>(construct::ucsAxis(run.database(), L"UCSYDIR"));
}

/// In the order of the keywords.
using Mode = CMD_RUNSTATUS (*)(const XlineRun&);
constexpr Mode kModes[] = {drawHorizontals, drawVerticals, construct::drawAtAngle, construct::drawBisectors,
                           construct::drawOffsets};

} // namespace

CMD_RUNSTATUS CXLineCmd::Run() {
  return perform([](frame::Session& session) {
    const XlineRun run(session);
    OdGePoint3d start;
    const int code =
        run.askPoint(IDS_SPECIFY_START_POINT, start, nullptr, res::loadString(IDS_KEYS_XLINE_MODES));
    const frame::Answer answer = frame::classifyAnswer(code);
    if (answer.kind == frame::AnswerKind::value) return drawThroughStart(run, start);
    if (answer.kind == frame::AnswerKind::keyword) return kModes[answer.keyword - 1](run);
    return frame::statusAfter(code);
  });
}
