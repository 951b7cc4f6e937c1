#include "Preview.h"
#include "HostEdDrawing.h"
#include "HostEdInputTracker.h"
#include <algorithm>
#include <utility>

namespace host {

namespace {

/// Keeps copies of what is drawn in the two passes of one movement.
class Recorder final : public HostEdDrawing, public HostEdSecondPass {
public:
  bool DrawEntity(OdDbEntity* entity, int mode, int view, int reserved1, int reserved2) override {
    if (!entity) return false;
    m_originals.push_back(entity);
    drawn.push_back({entity->clone(), true, false, mode, view, reserved1, reserved2});
    return true;
  }
  void Entity(OdDbEntity* entity) override {
    if (!entity) return;
    const auto known = std::ranges::find(m_originals, entity);
    if (known != m_originals.end()) {
      drawn[static_cast<std::size_t>(known - m_originals.begin())].isInSecondPass = true;
      return;
    }
    m_originals.push_back(entity);
    drawn.push_back({entity->clone(), false, true});
  }

  std::vector<PreviewedEntity> drawn;

private:
  std::vector<const OdDbEntity*> m_originals; ///< one for each copy
};

} // namespace

void Preview::name(int mode, const OdDbEntity* entity) {
  m_named.reset();
  if (entity) m_named = {mode, entity->clone()};
}

Tracking::Tracking(Preview& preview, HostEdInputTracker* tracker) : m_preview(preview), m_tracker(tracker) {
  m_preview.m_entities.clear();
  int mode = 0;
  if (m_tracker && m_tracker->InputMode(mode)) m_preview.m_inputMode = mode;
}

Tracking::~Tracking() { m_preview = Preview(); }

void Tracking::moveCursor(const OdGePoint3d& cursor) {
  m_preview.m_entities.clear();
  if (!m_tracker || !m_tracker->Filter({kHostEdMouseMove, &cursor}, cursor)) return;
  Recorder recorder;
  m_tracker->Draw(&recorder);
  m_tracker->DrawSecondPass(&recorder);
  m_preview.m_entities = std::move(recorder.drawn);
}

} // namespace host
