#pragma once
#include "Ge/GePoint3d.h"

class HostEdDrawing;
class HostEdSecondPass;

/// Kinds of input messages.
enum HostEdMessageKind : unsigned int {
  kHostEdMouseMove = 512, ///< the payload is the cursor point in world coordinates
};

struct HostEdInputMessage {
  unsigned int kind;
  const OdGePoint3d* payload;
};

class HostEdJigDimData {
public:
  virtual void* Reserved0() { return nullptr; }
  virtual int Reserved1() { return 3; }
  virtual int Reserved2() { return 3; }

protected:
  ~HostEdJigDimData() = default;
};

class HostEdMessageFilter {
public:
  /// Slot 0. Receives a message while the host waits for input; true: handled. `cursor` is in world
  /// coordinates.
  virtual bool Filter(const HostEdInputMessage& message, const OdGePoint3d& cursor) = 0;

protected:
  ~HostEdMessageFilter() = default;
};

/// Follows the cursor during a request for input and draws a preview. Trackers live with their command: the
/// host keeps no pointer to one after the request.
class HostEdInputTracker : public HostEdMessageFilter, public HostEdJigDimData {
public:
  bool Filter(const HostEdInputMessage&, const OdGePoint3d&) override { return false; }
  /// Slot 1. Draws the preview; 0: nothing was drawn.
  virtual int Draw(HostEdDrawing*) { return 0; }
  /// Slot 2. A second drawing pass.
  virtual void DrawSecondPass(HostEdSecondPass*) {}
  virtual bool Reserved3() { return false; }
  virtual bool Reserved4() { return false; }
  /// Slot 5. Supplies an input mode; false: the host's own applies.
  virtual bool InputMode(int&) { return false; }

protected:
  ~HostEdInputTracker() = default;
};

/// Base of the trackers of point input.
class HostEdPointTracker : public HostEdInputTracker {
protected:
  ~HostEdPointTracker() = default;
};

/// Base of the trackers of object selection.
class HostEdSSetTracker : public HostEdInputTracker {
protected:
  ~HostEdSSetTracker() = default;
};
