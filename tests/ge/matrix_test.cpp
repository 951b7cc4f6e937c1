#include "Ge/GeMatrix3d.h"
#include "Ge/GePlane.h"
#include <functional>
#include <gmock/gmock.h>

namespace {

const OdGeVector3d kOffset(10, -20, 5);

OdGeMatrix3d skewed() { return OdGeMatrix3d().setCoordSystem({1, 2, 3}, {1, 0, 0}, {1, 2, 0}, {0.5, -1, 3}); }

OdResult thrownCode(const std::function<void()>& action) {
  try {
    action();
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

TEST(Matrix, GivesPlanesTheirArbitraryAxes) {
  const double edge = 1.0 / 64;
  const struct {
    OdGeVector3d normal, xAxis;
  } cases[] = {
      {{0, 0, 1}, {1, 0, 0}},
      {{0, 0, -1}, {-1, 0, 0}},
      {{0, 0, 25}, {1, 0, 0}},
      {{1, 0, 0}, {0, 1, 0}},
      {{0, -1, 0}, {1, 0, 0}},
      // Within a 64th of the Z axis in x and in y the Y axis of the world takes part, else its Z axis.
      {{edge * 0.999, 0, 1}, OdGeVector3d(1, 0, -edge * 0.999)},
      {{edge * 1.001, 0, 1}, {0, 1, 0}},
      {{0, edge * 0.999, 1}, {1, 0, 0}},
      {{0, edge * 1.001, -1}, {-1, 0, 0}},
      {{edge * 0.999, edge * 1.001, -1}, {-1.001, 0.999, 0}},
  };
  for (const auto& c : cases) {
    const OdGeMatrix3d matrix = OdGeMatrix3d::planeToWorld(c.normal);
    EXPECT_TRUE(matrix.getCsXAxis().isEqualTo(c.xAxis.normal())) << c.normal.x << ' ' << c.normal.y;
    EXPECT_TRUE(matrix.getCsZAxis().isCodirectionalTo(c.normal));
    EXPECT_TRUE(matrix.isUniScaledOrtho());
    EXPECT_NEAR(matrix.det(), 1, 1e-12);
    EXPECT_EQ(OdGeMatrix3d::worldToPlane(c.normal) * matrix, OdGeMatrix3d::kIdentity);
  }
  EXPECT_EQ(thrownCode([] { OdGeMatrix3d::planeToWorld(OdGeVector3d()); }), eDegenerateGeometry);
}

TEST(Matrix, AppliesTheRightFactorFirst) {
  const OdGeMatrix3d turn = OdGeMatrix3d::rotation(OdaPI2, OdGeVector3d::kZAxis);
  const OdGeMatrix3d move = OdGeMatrix3d::translation(kOffset);
  EXPECT_EQ(turn * move * OdGePoint3d(1, 0, 0), OdGePoint3d(20, 11, 5));
  EXPECT_EQ(move * turn * OdGePoint3d(1, 0, 0), OdGePoint3d(10, -19, 5));
  EXPECT_EQ(OdGeMatrix3d(turn).preMultBy(move), move * turn);
  EXPECT_EQ(OdGeMatrix3d(turn).postMultBy(move), turn * move);
  EXPECT_EQ(move * OdGeVector3d(1, 2, 3), OdGeVector3d(1, 2, 3)); // directions do not move
}

TEST(Matrix, IsUndoneByItsInverse) {
  const OdGeVector3d n(1, 2, -2);
  const OdGePlane plane({3, 1, 4}, n);
  const OdGeMatrix3d matrices[] = {
      OdGeMatrix3d::translation(kOffset),
      OdGeMatrix3d::rotation(1.1, n, {5, 6, 7}),
      OdGeMatrix3d::scaling(OdGeScale3d(2, -3, 1e-6), {1, 2, 3}),
      OdGeMatrix3d::scaling(1e-9, {1, 2, 3}),
      OdGeMatrix3d::mirroring(plane),
      OdGeMatrix3d::mirroring(OdGePoint3d(1, 2, 3)),
      OdGeMatrix3d::planeToWorld(plane),
      skewed(),
      OdGeMatrix3d::rotation(1.1, n) * skewed() * OdGeMatrix3d::scaling(OdGeScale3d(2, -3, 0.25)),
  };
  const OdGePoint3d point(7, -8, 9);
  for (const OdGeMatrix3d& m : matrices) {
    EXPECT_EQ(m * m.inverse(), OdGeMatrix3d::kIdentity);
    EXPECT_EQ(OdGeMatrix3d(m).invert() * m, OdGeMatrix3d::kIdentity);
    EXPECT_TRUE((m.inverse() * (m * point)).isEqualTo(point, OdGeTol(1e-6)));
    EXPECT_NEAR(m.det() * m.inverse().det(), 1, 1e-9);
  }
}

TEST(Matrix, RefusesToInvertWhatFlattens) {
  const OdGeMatrix3d matrices[] = {
      OdGeMatrix3d::scaling(0),
      OdGeMatrix3d::scaling(OdGeScale3d(1, 0, 1)),
      OdGeMatrix3d().setCoordSystem({}, {1, 2, 3}, {2, 4, 6}, {0, 0, 1}),
      OdGeMatrix3d().setCoordSystem({}, {1, 2, 3}, {4, 5, 6}, {7, 8, 9}),
  };
  for (const OdGeMatrix3d& m : matrices) {
    EXPECT_TRUE(m.isSingular());
    EXPECT_EQ(thrownCode([&m] { m.inverse(); }), eNonInvertibleMatrix);
  }
  EXPECT_EQ(thrownCode([] { OdGeScale3d(1, 0, 1).inverse(); }), eNonInvertibleMatrix);
  EXPECT_EQ(OdGeScale3d(2, -4, 8).inverse() * OdGeScale3d(2, -4, 8), OdGeScale3d::kIdentity);
}

TEST(Matrix, ClassifiesScalesAndMirrors) {
  const OdGeMatrix3d turn = OdGeMatrix3d::rotation(0.7, {1, 1, 3});
  const struct {
    OdGeMatrix3d matrix;
    bool ortho, uniform;
    double scale, det;
  } cases[] = {
      {turn * OdGeMatrix3d::scaling(3, {1, 1, 1}), true, true, 3, 27},
      {turn * OdGeMatrix3d::scaling(1e-3), true, true, 1e-3, 1e-9},
      {turn * OdGeMatrix3d::scaling(OdGeScale3d(2, -2, 2)), true, true, 2, -8},
      {turn * OdGeMatrix3d::scaling(OdGeScale3d(1, 2, 4)), true, false, 4, 8},
      {OdGeMatrix3d().setCoordSystem({}, {1, 0, 0}, {3, 4, 0}, {0, 0, 1}), false, false, 5, 4},
      {OdGeMatrix3d::mirroring(OdGePlane({0, 0, 0}, {1, 2, 3})), true, true, 1, -1},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.matrix.isScaledOrtho(), c.ortho);
    EXPECT_EQ(c.matrix.isUniScaledOrtho(), c.uniform);
    EXPECT_NEAR(c.matrix.scale(), c.scale, 1e-12);
    EXPECT_NEAR(c.matrix.det(), c.det, 1e-12);
  }
}

TEST(Matrix, CarriesOneCoordinateSystemOntoAnother) {
  const OdGeMatrix3d align = OdGeMatrix3d::alignCoordSys({1, 1, 1}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1},
                                                         {5, 0, 0}, {0, 2, 0}, {-1, 0, 0}, {0, 0, 1});
  EXPECT_EQ(align * OdGePoint3d(1, 1, 1), OdGePoint3d(5, 0, 0));
  EXPECT_EQ(align * OdGePoint3d(2, 2, 3), OdGePoint3d(4, 2, 2));
  OdGePoint3d origin;
  OdGeVector3d x, y, z;
  skewed().getCoordSystem(origin, x, y, z);
  EXPECT_EQ(OdGeMatrix3d().setCoordSystem(origin, x, y, z), skewed());
}

TEST(Plane, MeasuresProjectsAndMeetsLines) {
  const OdGePlane plane({0, 0, 2}, OdGeVector3d(0, 0, 5));
  EXPECT_NEAR(plane.signedDistanceTo({7, 8, -1}), -3, 1e-12);
  EXPECT_EQ(plane.project({7, 8, -1}), OdGePoint3d(7, 8, 2));
  EXPECT_EQ(plane.project({0, 0, 0}, {1, 0, 1}), OdGePoint3d(2, 0, 2));
  EXPECT_EQ(OdGeMatrix3d::mirroring(plane) * OdGePoint3d(1, 2, 5), OdGePoint3d(1, 2, -1));
  EXPECT_EQ(OdGeMatrix3d::worldToPlane(plane) * OdGePoint3d(1, 2, 5), OdGePoint3d(1, 2, 3));

  OdGePoint3d met(9, 9, 9);
  for (const OdGeVector3d& direction : {OdGeVector3d(1, 1, 0), OdGeVector3d(1, 0, 1e-12), OdGeVector3d()}) {
    EXPECT_FALSE(plane.intersectWithLine({0, 0, 0}, direction, met));
    EXPECT_EQ(met, OdGePoint3d(9, 9, 9));
    EXPECT_EQ(thrownCode([&] { plane.project({0, 0, 0}, direction); }), eDegenerateGeometry);
  }
  const OdGePlane leaning({1, 0, 0}, {0, 2, 0}, {0, 5, 3});
  EXPECT_EQ(leaning.normal(), OdGeVector3d::kXAxis);
  EXPECT_EQ(OdGeMatrix3d::planeToWorld(leaning) * OdGePoint3d(1, 2, 3), OdGePoint3d(4, 1, 2));
  EXPECT_EQ(thrownCode([] { OdGePlane({}, {1, 2, 3}, {2, 4, 6}); }), eDegenerateGeometry);
  EXPECT_EQ(thrownCode([] { OdGePlane({}, OdGeVector3d()); }), eDegenerateGeometry);
}

} // namespace
