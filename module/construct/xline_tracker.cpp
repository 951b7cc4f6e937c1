#include "xline_tracker.h"
#include "direction.h"
#include "preview.h"
#include "xline_geometry.h"

CXlineTracker::CXlineTracker(OdDbXlinePtr line, const OdGeVector3d& direction)
    : m_line(std::move(line)), m_direction(direction) {
  if (!m_direction.isZeroLength()) m_line->setUnitDir(m_direction);
}

bool CXlineTracker::Filter(const HostEdInputMessage& message, const OdGePoint3d& cursor) {
  if (message.kind != kHostEdMouseMove) return false;
  if (Update(cursor)) m_isPlaced = true;
  return true;
}

int CXlineTracker::Draw(HostEdDrawing* drawing) {
  if (!m_isPlaced) return 0;
  construct::drawPreview(*drawing, m_line);
  return 1;
}

void CXlineTracker::DrawSecondPass(HostEdSecondPass* pass) {
  if (m_isPlaced) pass->Entity(m_line);
}

bool CXlineTracker::InputMode(int& mode) {
  mode = construct::kPreviewInputMode;
  return true;
}

bool CXlineTracker::Update(const OdGePoint3d& cursor) {
  if (!m_direction.isZeroLength()) {
    m_line->setBasePoint(cursor);
    return true;
  }
  const std::optional<OdGeVector3d> way = construct::wayTo(m_line->basePoint(), cursor);
  if (way) m_line->setUnitDir(*way);
  return way.has_value();
}

bool CAngXlineTracker::Update(const OdGePoint3d& cursor) {
  line().setBasePoint(cursor);
  return true;
}

bool CBisXlineTracker::Update(const OdGePoint3d& cursor) {
  const std::optional<OdGeVector3d> half = construct::bisector(line().basePoint(), m_start, cursor);
  if (half) line().setUnitDir(*half);
  return half.has_value();
}
