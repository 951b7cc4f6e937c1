#pragma once

class OdDbEntity;

/// Where trackers draw their previews while the host waits for input. Nothing of it outlives the next
/// movement of the cursor.
class HostEdDrawing {
public:
  /// Slot 0. Draws an entity, which need not be in a drawing; it stays the caller's. `mode`, `view` and the
  /// two that follow are the host's own: previews pass 1, 512, 0, 0. False: the entity cannot be drawn.
  virtual bool DrawEntity(OdDbEntity* entity, int mode, int view, int reserved1, int reserved2) = 0;

protected:
  ~HostEdDrawing() = default;
};

/// The second drawing pass: what is to be drawn over the first.
class HostEdSecondPass {
public:
  virtual void Reserved0() {}
  virtual void Reserved1() {}
  /// Slot 2. An entity of the preview; it stays the caller's.
  virtual void Entity(OdDbEntity* entity) = 0;

protected:
  ~HostEdSecondPass() = default;
};
