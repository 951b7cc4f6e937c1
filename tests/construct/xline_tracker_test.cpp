// The trackers of Ray and XLINE: what they make of the cursor, and what they give to the host to draw.
#include "construct/ray_tracker.h"
#include "construct/xline_tracker.h"
#include "ray_session.h"

namespace {

using construct::TrackerObject;

/// Notes what is drawn in both passes.
class Canvas final : public HostEdDrawing, public HostEdSecondPass {
public:
  bool DrawEntity(OdDbEntity* entity, int mode, int view, int reserved1, int reserved2) override {
    EXPECT_EQ(std::vector({mode, view, reserved1, reserved2}), std::vector({1, 512, 0, 0}));
    first = entity;
    return true;
  }
  void Entity(OdDbEntity* entity) override { second = entity; }

  const OdDbEntity* first = nullptr;
  const OdDbEntity* second = nullptr;
};

/// Moves the cursor and gives what the host then draws, or "".
std::string shownAt(HostEdInputTracker& tracker, const OdGePoint3d& cursor, const OdDbEndlessLine& line) {
  EXPECT_TRUE(tracker.Filter({kHostEdMouseMove, &cursor}, cursor));
  Canvas canvas;
  const int drew = tracker.Draw(&canvas);
  tracker.DrawSecondPass(&canvas);
  EXPECT_EQ(drew, canvas.first ? 1 : 0);
  EXPECT_EQ(canvas.first, canvas.second);
  if (!canvas.first) return "";
  EXPECT_EQ(canvas.first, &line);
  return text(line);
}

void checkSlots(HostEdInputTracker& tracker, const OdDbEndlessLine& line) {
  const std::string before = text(line);
  const OdGePoint3d cursor(7, 8, 9);
  constexpr unsigned int kOtherMessage = 513;
  EXPECT_FALSE(tracker.Filter({kOtherMessage, &cursor}, cursor));
  EXPECT_EQ(text(line), before);
  int mode = 0;
  EXPECT_TRUE(tracker.InputMode(mode));
  EXPECT_EQ(mode, 2);
  EXPECT_FALSE(tracker.Reserved3());
  EXPECT_FALSE(tracker.Reserved4());
  HostEdJigDimData& dimensions = tracker;
  EXPECT_EQ(dimensions.Reserved0(), nullptr);
  EXPECT_EQ(dimensions.Reserved1(), 3);
  EXPECT_EQ(dimensions.Reserved2(), 3);
}

TEST(RayTracker, TurnsTheRayTowardsTheCursor) {
  const OdDbRayPtr ray = OdDbRay::createObject();
  ray->setBasePoint({1, 1, 0});
  const long references = ray->numRefs();
  {
    RayTracker tracker(ray);
    EXPECT_EQ(ray->numRefs(), references + 1);
    EXPECT_EQ(shownAt(tracker, {1, 1, 0}, *ray), "ray 1,1,0 1,0,0") << "as it was";
    EXPECT_EQ(shownAt(tracker, {4, 5, 0}, *ray), "ray 1,1,0 0.6,0.8,0");
    EXPECT_EQ(shownAt(tracker, {1, 1, 5e-11}, *ray), "ray 1,1,0 0.6,0.8,0") << "the last direction stays";
    EXPECT_EQ(shownAt(tracker, {1, 1, -3}, *ray), "ray 1,1,0 0,0,-1");
    checkSlots(tracker, *ray);
  }
  EXPECT_EQ(ray->numRefs(), references);
}

/// A line through (1,1), and the trackers that a test asks for.
class XlineTrackers : public testing::Test {
protected:
  XlineTrackers() { line->setBasePoint({1, 1, 0}); }
  std::string shown(CXlineTracker& tracker, const OdGePoint3d& cursor) {
    return shownAt(tracker, cursor, *line);
  }
  OdDbXlinePtr line = OdDbXline::createObject();
};

TEST_F(XlineTrackers, FreeLinesTurnTowardsTheCursor) {
  TrackerObject<CXlineTracker> tracker(line);
  EXPECT_EQ(shown(tracker, {1, 1, 5e-11}), "") << "no direction yet";
  EXPECT_EQ(shown(tracker, {4, 5, 0}), "xline 1,1,0 0.6,0.8,0");
  EXPECT_EQ(shown(tracker, {1, 1, 0}), "xline 1,1,0 0.6,0.8,0") << "the last direction stays";
  checkSlots(tracker, *line);
}

TEST_F(XlineTrackers, LinesOfAFixedDirectionMoveWithTheCursor) {
  const OdGeVector3d direction(-3, 4, 0);
  TrackerObject<CHorXlineTracker> horizontal(line, direction);
  TrackerObject<CVertXlineTracker> vertical(line, direction);
  TrackerObject<CAngXlineTracker> angled(line, direction);
  for (CXlineTracker* tracker : std::initializer_list<CXlineTracker*>{&horizontal, &vertical, &angled}) {
    Canvas canvas;
    EXPECT_EQ(tracker->Draw(&canvas), 0) << "no place yet";
    EXPECT_EQ(shown(*tracker, {0, 0, 0}), "xline 0,0,0 -0.6,0.8,0");
    EXPECT_EQ(shown(*tracker, {5, 6, 7}), "xline 5,6,7 -0.6,0.8,0");
    checkSlots(*tracker, *line);
  }
}

TEST_F(XlineTrackers, BisectorsHalveTheAngleToTheCursor) {
  TrackerObject<CBisXlineTracker> tracker(line, OdGePoint3d(9, 1, 0));
  EXPECT_EQ(shown(tracker, {1, 1, 0}), "") << "the vertex";
  EXPECT_EQ(shown(tracker, {-5, 1, 0}), "") << "opposite";
  EXPECT_EQ(shown(tracker, {4, 5, 0}), "xline 1,1,0 0.894427191,0.447213595,0");
  EXPECT_EQ(shown(tracker, {1, 1, 0}), "xline 1,1,0 0.894427191,0.447213595,0") << "the last one stays";
  checkSlots(tracker, *line);
}

TEST_F(XlineTrackers, TheUpdateStandsBehindTheSlotsOfTheHost) {
  TrackerObject<CBisXlineTracker> tracker(line, OdGePoint3d(9, 1, 0));
  void** const table = *reinterpret_cast<void***>(static_cast<HostEdInputTracker*>(&tracker));
  const OdGePoint3d end(1, 4, 0);
  EXPECT_TRUE(reinterpret_cast<bool (*)(void*, const OdGePoint3d&)>(table[6])(&tracker, end));
  EXPECT_EQ(text(*line), "xline 1,1,0 0.707106781,0.707106781,0");
}

} // namespace
