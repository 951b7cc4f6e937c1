// What XLINE asks of geometry where its prompts cannot lead: sides at the edge of their tolerance, and
// segments of polylines by the place that was picked.
#include "DbPolyline.h"
#include "construct/xline_geometry.h"
#include "construct/xline_pick.h"
#include "ray_session.h"

namespace {

using construct::Line;

class XlineGeometry : public RaySession {};

TEST_F(XlineGeometry, SidesOfALine) {
  const OdDbDatabase* const none = nullptr;
  const OdDbDatabase* const world = &database();
  const Line axis{{0, 0, 0}, {1, 0, 0}}, upright{{0, 0, 0}, {0, 0, 1}}, nowhere{{0, 0, 0}, {0, 0, 0}};
  const struct {
    const OdDbDatabase* database;
    Line line;
    OdGePoint3d point;
    bool isOnLeft;
  } cases[] = {
      {world, axis, {5, 1e-6, 0}, true},
      {world, axis, {5, -1e-6, 0}, false},
      {world, axis, {5, 0, 0}, false},
      {world, axis, {0, 0, 0}, false},
      // Behind the base point the angle is pi and a little.
      {world, axis, {-1, 0, 0}, false},
      {world, axis, {-1, 1e-11, 0}, false},
      {world, axis, {-1, 1e-9, 0}, true},
      {world, axis, {-1, 1, 50}, true},
      {world, axis, {-1, -1, 50}, false},
      {world, upright, {-1, -1, 0}, true},
      {world, nowhere, {-1, -1, 0}, true},
      // Of the X axis perpVector() is Y, of the Z axis X.
      {none, axis, {0, 1, 0}, true},
      {none, axis, {0, -1, 0}, false},
      {none, upright, {1, 0, 0}, true},
      {none, upright, {-1, 0, 0}, false},
      {none, nowhere, {-1, -1, 0}, true},
  };
  for (const auto& test : cases)
    EXPECT_EQ(construct::isOnLeft(test.database, test.point, test.line), test.isOnLeft)
        << &test - cases << ": " << test.point.x << "," << test.point.y;
}

/// A square of side 10 whose right side is half a circle, closed or with its left side missing.
OdDbPolylinePtr square(bool closed, double topBulge = 0) {
  OdDbPolylinePtr made = OdDbPolyline::createObject();
  made->addVertexAt(0, {0, 0});
  made->addVertexAt(1, {10, 0}, 1);
  made->addVertexAt(2, {10, 10}, topBulge);
  made->addVertexAt(3, {0, 10});
  made->setClosed(closed);
  return made;
}

TEST_F(XlineGeometry, SegmentsOfPolylinesByWhereTheyWerePicked) {
  OdGeMatrix3d tilt; // the top goes to y = 6, z = 8
  tilt.setCoordSystem({0, 0, 0}, {1, 0, 0}, {0, 0.6, 0.8}, {0, -0.8, 0.6});
  const OdDbPolylinePtr tilted = square(true), edge = square(true), high = square(true),
                        point = OdDbPolyline::createObject();
  tilted->transformBy(tilt);
  edge->transformBy(tilt);
  high->setElevation(1000);
  point->addVertexAt(0, {0, 0});
  const std::string bottom = "xline 0,0,0 1,0,0", top = "xline 10,10,0 -1,0,0", left = "xline 0,10,0 0,-1,0";
  const struct {
    const char* name;
    OdDbPolylinePtr polyline;
    OdGePoint3d picked;
    std::string expected;
    Ucs ucs = {};
  } cases[] = {
      {"first", square(true), {5, 0.1, 0}, bottom},
      {"arc", square(true), {15, 5, 0}, ""},
      {"behind the arc", square(true), {5, 9.9, 0}, top},
      {"closing", square(true), {0, 5, 0}, left},
      {"the same of an open one", square(false), {0, 9, 0}, top},
      {"beyond the end", square(false), {-5, 12, 0}, top},
      {"as good as straight", square(true, 1e-10), {5, 10, 0}, top},
      {"all but straight", square(true, -1.1e-10), {5, 10, 0}, ""},
      {"far above the cursor", high, {5, 9.9, 0}, "xline 10,10,1000 -1,0,0"},
      // The bottom is nearer in space, the top on the screen.
      {"tilted", tilted, {5, 5.9, 0}, "xline 10,6,8 -1,0,0"},
      {"tilted, seen as a line", edge, {5, 9, 0}, "xline 10,6,8 -1,0,0", {{}, {1, 0, 0}, {0, -0.8, 0.6}}},
      {"a single vertex", point, {0, 0, 0}, ""},
      {"no vertex", OdDbPolyline::createObject(), {0, 0, 0}, ""},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    setUcs(test.ucs);
    add(test.polyline);
    const std::optional<Line> found =
        construct::lineObject(database(), test.polyline->objectId(), test.picked);
    const OdDbXlinePtr shown = OdDbXline::createObject();
    if (found) {
      shown->setBasePoint(found->base);
      shown->setUnitDir(found->direction);
    }
    EXPECT_EQ(found ? text(*shown) : "", test.expected);
  }
}

} // namespace
