#pragma once
#include "frame/input.h"
#include "frame/session.h"
#include "preview.h"
#include "res/strings.h"
#include "xline_geometry.h"
#include "xline_tracker.h"

namespace construct {

/// What the modes of XLINE share: the drawing, the space that the run draws in, and the questions for points.
class XlineRun {
public:
  explicit XlineRun(const frame::Session& session);

  OdDbDatabase& database() const { return m_session.database(); }
  HostEdInput& input() const { return m_session.input(); }

  /// Asks for a point; the code of the answer. `anchor` is where the rubber band begins; keywords and tracker
  /// may be null.
  int askPoint(unsigned prompt, OdGePoint3d& point, const OdGePoint3d* anchor = nullptr,
               const OdChar* keywords = nullptr, HostEdInputTracker* tracker = nullptr) const;

  /// Asks for points until an answer is none; the status that it leads to. Each time there is a new line to
  /// preview, which `track` gives its tracker; `place` says which line a point asks for, if any, and that one
  /// is drawn.
  template <class Track, class Place>
  CMD_RUNSTATUS drawLines(unsigned prompt, const OdGePoint3d* anchor, Track track, Place place) const;

  /// Draws lines of one direction, through a point each.
  template <class Tracker>
  CMD_RUNSTATUS drawParallels(const OdGeVector3d& direction) const;

  void draw(const Line& line) const;

private:
  /// A line with the drawing's defaults that is in no drawing yet.
  OdDbXlinePtr newLine() const;

  const frame::Session& m_session;
  OdDbObjectId m_space;
};

template <class Track, class Place>
CMD_RUNSTATUS XlineRun::drawLines(unsigned prompt, const OdGePoint3d* anchor, Track track,
                                  Place place) const {
  for (;;) {
    const OdDbXlinePtr shown = newLine();
    auto tracker = track(shown);
    input().Preview(kPreviewMode, shown);
    OdGePoint3d point;
    const int code = askPoint(prompt, point, anchor, nullptr, &tracker);
    if (code != kHostEdValue) return frame::statusAfter(code);
    if (const std::optional<Line> line = place(point)) draw(*line);
  }
}

template <class Tracker>
CMD_RUNSTATUS XlineRun::drawParallels(const OdGeVector3d& direction) const {
  return drawLines(
      IDS_SPECIFY_THROUGH_POINT, nullptr,
      [&](const OdDbXlinePtr& line) { return TrackerObject<Tracker>(line, direction); },
      [&](const OdGePoint3d& point) { return lineAlong(point, direction); });
}

} // namespace construct
