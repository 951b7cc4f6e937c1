#include "xline_run.h"
#include "target_space.h"

namespace construct {

XlineRun::XlineRun(const frame::Session& session)
    : m_session(session), m_space(targetSpace(session.database())) {}

int XlineRun::askPoint(unsigned prompt, OdGePoint3d& point, const OdGePoint3d* anchor, const OdChar* keywords,
                       HostEdInputTracker* tracker) const {
  return input().GetPoint(anchor, point, res::loadString(prompt), keywords, kPointFlags, nullptr, tracker);
}

OdDbXlinePtr XlineRun::newLine() const {
  OdDbXlinePtr line = OdDbXline::createObject();
  line->setDatabaseDefaults(&database());
  return line;
}

void XlineRun::draw(const Line& line) const {
  const OdDbXlinePtr drawn = newLine();
  drawn->setBasePoint(line.base);
  drawn->setUnitDir(line.direction);
  append(m_space, drawn);
}

} // namespace construct
