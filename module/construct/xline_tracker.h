#pragma once
#include "DbXline.h"
#include "HostEdDrawing.h"
#include "HostEdInputTracker.h"

// Trackers preview the next line of the command XLINE while a point is being asked for. Each holds a
// reference to the line that it previews, which is never the one that is drawn, and draws nothing before the
// cursor has given that line a place.

/// Base of the trackers. On its own it turns the line about its base point towards the cursor, or, given a
/// fixed direction, moves the line with the cursor.
class CXlineTracker : public HostEdPointTracker {
public:
  /// The zero vector leaves the direction to the cursor; any other becomes the line's.
  explicit CXlineTracker(OdDbXlinePtr line, const OdGeVector3d& direction = OdGeVector3d::kIdentity);

  bool Filter(const HostEdInputMessage& message, const OdGePoint3d& cursor) override;
  int Draw(HostEdDrawing* drawing) override;
  void DrawSecondPass(HostEdSecondPass* pass) override;
  bool InputMode(int& mode) override;
  /// Slot 6. Gives the line its place for this cursor; false, with the line left as it was, when there is
  /// none.
  virtual bool Update(const OdGePoint3d& cursor);

protected:
  ~CXlineTracker() = default;
  OdDbXline& line() const { return *m_line; }

private:
  OdDbXlinePtr m_line;
  OdGeVector3d m_direction;
  bool m_isPlaced = false;
};

/// Lines along the X axis of the current coordinate system.
class CHorXlineTracker : public CXlineTracker {
public:
  using CXlineTracker::CXlineTracker;

protected:
  ~CHorXlineTracker() = default;
};

/// Lines along the Y axis of the current coordinate system.
class CVertXlineTracker : public CXlineTracker {
public:
  using CXlineTracker::CXlineTracker;

protected:
  ~CVertXlineTracker() = default;
};

/// Lines at an angle: only the base point follows the cursor.
class CAngXlineTracker : public CXlineTracker {
public:
  using CXlineTracker::CXlineTracker;
  bool Update(const OdGePoint3d& cursor) override;

protected:
  ~CAngXlineTracker() = default;
};

/// Bisectors of the angle at the line's base point between a start point and the cursor.
class CBisXlineTracker : public CXlineTracker {
public:
  CBisXlineTracker(OdDbXlinePtr line, const OdGePoint3d& start)
      : CXlineTracker(std::move(line)), m_start(start) {}
  bool Update(const OdGePoint3d& cursor) override;

protected:
  ~CBisXlineTracker() = default;

private:
  OdGePoint3d m_start;
};

namespace construct {

/// A tracker as it is made for one question. It alone knows the whole size of the object, so it ends it.
template <class Tracker>
class TrackerObject final : public Tracker {
public:
  using Tracker::Tracker;
};

} // namespace construct
