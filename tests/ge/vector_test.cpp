#include "Ge/GeExtents2d.h"
#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"
#include <gmock/gmock.h>
#include <limits>

namespace {

constexpr double kNear = 1e-12;

TEST(Vector, MeasuresAnglesAroundAReference) {
  const OdGeVector3d x = OdGeVector3d::kXAxis;
  const OdGeVector3d y = OdGeVector3d::kYAxis;
  const OdGeVector3d z = OdGeVector3d::kZAxis;
  const struct {
    OdGeVector3d from, to, reference;
    double expected;
  } cases[] = {
      {x, y, z, OdaPI2},
      {y, x, z, 3 * OdaPI2},
      {y, x, -z, OdaPI2},
      {x, x * 5, z, 0},
      {x, -x, z, OdaPI},
      {x, -x, -z, OdaPI},
      {x, {1, -1, 0}, z, 7 * OdaPI / 4},
      {z, x, y, OdaPI2},
      {x, OdGeVector3d::kIdentity, z, 0},
      {x, {1, -1e-17, 0}, z, 0}, // rounds up to a full turn, which is none
  };
  for (const auto& c : cases) {
    EXPECT_NEAR(c.from.angleTo(c.to, c.reference), c.expected, kNear);
    EXPECT_NEAR(c.from.angleTo(c.to), std::min(c.expected, Oda2PI - c.expected), kNear);
  }
  // Close to 0 and pi the angle keeps its digits.
  EXPECT_NEAR(x.angleTo({1, 1e-9, 0}), 1e-9, 1e-20);
  EXPECT_NEAR(OdGeVector2d(-1, -1).angle(), 5 * OdaPI / 4, kNear);
  EXPECT_EQ(OdGeVector2d(1, -1e-17).angle(), 0);
}

TEST(Vector, ComparesDirectionsWithinTheTolerance) {
  const struct {
    OdGeVector3d a, b;
    bool codirectional, parallel, perpendicular;
  } cases[] = {
      {{1, 2, 3}, {2, 4, 6}, true, true, false},       {{1, 2, 3}, {-2, -4, -6}, false, true, false},
      {{1e6, 0, 0}, {0, 1e-6, 0}, false, false, true}, {{1, 0, 0}, {1, 1e-11, 0}, true, true, false},
      {{1, 0, 0}, {1, 1e-9, 0}, false, false, false},  {{1, 0, 0}, {1e-9, 1, 0}, false, false, false},
      {{1, 0, 0}, {0, 0, 0}, false, false, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.a.isCodirectionalTo(c.b), c.codirectional);
    EXPECT_EQ(c.a.isParallelTo(c.b), c.parallel);
    EXPECT_EQ(c.b.isParallelTo(c.a), c.parallel);
    EXPECT_EQ(c.a.isPerpendicularTo(c.b), c.perpendicular);
  }
  EXPECT_TRUE(OdGeVector3d(1, 0, 0).isCodirectionalTo({1, 1e-4, 0}, OdGeTol(1e-3)));
  EXPECT_TRUE(OdGePoint3d(1, 0, 0).isEqualTo({1.5, 0, 0}, OdGeTol(1, 1e-9)));
  EXPECT_FALSE(OdGePoint3d(1, 0, 0) == OdGePoint3d(1, 0, 2e-10));
}

TEST(Vector, NormalisesWithoutEverDividingByZero) {
  for (const OdGeVector3d& v : {OdGeVector3d(0, 0, 0), OdGeVector3d(1e-11, 0, 0), OdGeVector3d(1e-300, 0, 0),
                                OdGeVector3d(std::numeric_limits<double>::infinity(), 0, 0)}) {
    OdGeVector3d copy = v;
    EXPECT_THROW(copy.normalize(), OdError);
    EXPECT_EQ(copy.normalizeGetLength(), 0);
    EXPECT_EQ(copy.x, v.x);
    EXPECT_EQ(v.normal().x, v.x);
    EXPECT_THROW(v.perpVector(), OdError);
  }
  EXPECT_EQ(OdGeVector3d(0, 0, 49).normal().z, 1.0);
  EXPECT_NEAR(OdGeVector3d(1e200, 1e200, 0).normal().length(), 1, kNear);
  EXPECT_NEAR(OdGeVector3d(1e-12, 0, 0).normal(OdGeTol(1e-15)).x, 1, kNear);
  EXPECT_NEAR(OdGeVector2d(3, 4).normalize().y, 0.8, kNear);
  EXPECT_THROW(OdGeVector2d().normalize(), OdError);
  EXPECT_THROW(OdGeVector3d(1, 2, 3) / 0, OdError);
}

TEST(Vector, TurnsByTheRightHandRule) {
  EXPECT_EQ(OdGeVector3d(1, 0, 0).rotateBy(OdaPI2, {0, 0, 7}), OdGeVector3d::kYAxis);
  EXPECT_EQ(OdGeVector3d(0, 1, 0).rotateBy(OdaPI2, OdGeVector3d::kXAxis), OdGeVector3d::kZAxis);
  EXPECT_EQ(OdGeVector3d(1, 0, 0).rotateBy(Oda2PI / 3, {1, 1, 1}), OdGeVector3d::kYAxis);
  EXPECT_EQ(OdGePoint3d(2, 1, 5).rotateBy(OdaPI, OdGeVector3d::kZAxis, {1, 1, 0}), OdGePoint3d(0, 1, 5));
  EXPECT_THROW(OdGeVector3d(1, 0, 0).rotateBy(1, OdGeVector3d::kIdentity), OdError);
  EXPECT_EQ(OdGeVector2d(1, 0).rotateBy(OdaPI2), OdGeVector2d::kXAxis.perpVector());
  EXPECT_GT(OdGeVector2d::kXAxis.crossProduct(OdGeVector2d::kYAxis), 0);
}

TEST(Extents, GrowFromEmptyAndStayEmptyWithoutPoints) {
  OdGeExtents3d box;
  EXPECT_FALSE(box.isValidExtents());
  EXPECT_FALSE(box.contains({0, 0, 0}));
  EXPECT_FALSE(box.addExt(OdGeExtents3d()).expandBy({1, 1, 1}).transformBy(OdGeMatrix3d()).isValidExtents());
  EXPECT_THROW(box.center(), OdError);
  box.addPoint({1e21, 0, 0}); // beyond the numbers that stand for an empty box
  EXPECT_EQ(box.minPoint(), OdGePoint3d(1e21, 0, 0));

  OdGeExtents3d unit({0, 0, 0}, {1, 1, 1});
  unit.expandBy({2, -1, 0});
  EXPECT_EQ(unit.minPoint(), OdGePoint3d(0, -1, 0));
  EXPECT_EQ(unit.maxPoint(), OdGePoint3d(3, 1, 1));
  unit.transformBy(OdGeMatrix3d::rotation(OdaPI2, OdGeVector3d::kZAxis));
  EXPECT_EQ(unit.minPoint(), OdGePoint3d(-1, 0, 0));
  EXPECT_EQ(unit.maxPoint(), OdGePoint3d(1, 3, 1));
  EXPECT_TRUE(unit.contains({1 + 1e-11, 3, 0}));
  EXPECT_FALSE(unit.contains({1 + 1e-9, 3, 0}));
  EXPECT_FALSE(unit.isDisjoint({{1, 3, 1}, {9, 9, 9}}));
  EXPECT_TRUE(unit.isDisjoint({{-9, 0, 2}, {9, 9, 9}}));

  OdGeExtents2d flat;
  flat.addExt(OdGeExtents2d()).addPoint({2, 1}).addPoint({-1, 5});
  EXPECT_EQ(flat.minPoint(), OdGePoint2d(-1, 1));
  EXPECT_TRUE(flat.contains({2, 5}));
  EXPECT_FALSE(flat.contains({2, 0.9}));
}

} // namespace
