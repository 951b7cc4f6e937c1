#pragma once
#include "DbEntity.h"
#include <optional>
#include <vector>

class HostEdInputTracker;
class OdGePoint3d;

namespace host {

/// An entity that a tracker has drawn, as it was then: a copy that belongs to no drawing.
struct PreviewedEntity {
  OdDbEntityPtr entity;
  bool isInFirstPass = false;
  bool isInSecondPass = false;
  /// What HostEdDrawing::DrawEntity was told in the first pass.
  int mode = 0;
  int view = 0;
  int reserved1 = 0;
  int reserved2 = 0;
};

/// The entity that a command has named before its tracker draws it (HostEdInput::Preview).
struct NamedPreview {
  int mode = 0;
  OdDbEntityPtr entity; ///< a copy that belongs to no drawing
};

/// What trackers show while the host waits for a point.
class Preview {
public:
  /// In the order of drawing; an entity of both passes once.
  const std::vector<PreviewedEntity>& entities() const { return m_entities; }
  /// What the tracker supplied for the request under way, if anything.
  const std::optional<int>& inputMode() const { return m_inputMode; }
  /// The named entity, until the request ends that it was named for. A null entity names none.
  const std::optional<NamedPreview>& named() const { return m_named; }
  void name(int mode, const OdDbEntity* entity);

private:
  friend class Tracking;
  std::vector<PreviewedEntity> m_entities;
  std::optional<int> m_inputMode;
  std::optional<NamedPreview> m_named;
};

/// One request for a point. The tracker, which may be null, is held as long as this lives; with the request
/// its preview ends.
class Tracking {
public:
  Tracking(Preview& preview, HostEdInputTracker* tracker);
  ~Tracking();
  Tracking(const Tracking&) = delete;
  Tracking& operator=(const Tracking&) = delete;

  /// Tells the tracker where the cursor is (world coordinates) and, if it takes notice, has it draw afresh.
  void moveCursor(const OdGePoint3d& cursor);

private:
  Preview& m_preview;
  HostEdInputTracker* m_tracker;
};

} // namespace host
