#include "Ge/GeEllipArc3d.h"
#include "Ge/GeLinearEnt3d.h"
#include "Ge/GeNurbCurve3d.h"
#include "Ge/GePolylineCurve3d.h"
#include "OdPlatform.h"
#include <functional>
#include <gmock/gmock.h>
#include <limits>
#include <random>

namespace {

using Curve = std::shared_ptr<OdGeCurve3d>;
using Points = std::vector<OdGePoint3d>;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

Curve ellipse(double a, double b, double from = 0, double to = Oda2PI) {
  return std::make_shared<OdGeEllipArc3d>(OdGePoint3d(3, -2, 1), OdGeVector3d(0, a, 0),
                                          OdGeVector3d(-b, 0, 0), from, to);
}
Curve spline(int degree, std::vector<double> knots, Points controls, std::vector<double> weights = {}) {
  return std::make_shared<OdGeNurbCurve3d>(degree, std::move(knots), std::move(controls), std::move(weights));
}
/// A quarter of the unit circle, exactly.
Curve quarter() {
  return spline(2, {0, 0, 0, 1, 1, 1}, {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}}, {1, std::sqrt(0.5), 1});
}
/// Its tangent turns back at 1: a cusp.
Curve cusp() { return spline(3, {0, 0, 0, 0, 2, 2, 2, 2}, {{0, 0, 0}, {2, 2, 0}, {0, 2, 0}, {2, 0, 0}}); }
Curve wild() {
  Points controls;
  std::vector<double> knots = {0, 0, 0, 0};
  std::vector<double> weights;
  std::mt19937 random(7);
  std::uniform_real_distribution<double> place(-10, 10);
  for (int i = 0; i < 40; ++i) {
    controls.emplace_back(place(random), place(random), place(random));
    weights.push_back(0.3 + std::fabs(place(random)));
    if (i >= 4) knots.push_back(i - 3 + 0.4 * std::sin(i));
  }
  knots.insert(knots.end(), 4, 37);
  return spline(3, knots, controls, weights);
}
Curve polyline(bool closed) {
  // A square with a half circle outwards, one inwards, coincident vertices, and an arc that is nearly
  // straight.
  return std::make_shared<OdGePolylineCurve3d>(Points{{0, 0, 5}, {4, 0, 5}, {4, 0, 5}, {4, 4, 5}, {0, 4, 5}},
                                               std::vector<double>{1, 0.3, -1, 1e-9, 0}, closed);
}

struct Named {
  const char* name;
  Curve curve;
};
std::vector<Named> everyCurve() {
  const Points star = {{0, 0, 0}, {5, 1, 0}, {6, 6, 2}, {6, 6, 2}, {-1, 4, 1}};
  return {
      {"segment", std::make_shared<OdGeLinearEnt3d>(OdGePoint3d(1, 2, 3), OdGePoint3d(4, 6, 15))},
      {"circle", ellipse(2.5, 2.5)},
      {"arc", ellipse(2.5, 2.5, 5, 7)},
      {"ellipse", ellipse(5, 2)},
      {"upright ellipse", ellipse(2, 5, -1, 4)},
      {"flat ellipse", ellipse(1000, 0.5, 1, 3)},
      {"quarter", quarter()},
      {"cusp", cusp()},
      {"wild spline", wild()},
      {"unclamped spline", spline(3, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9},
                                  {{0, 0, 0}, {1, 3, 0}, {4, 3, 0}, {0, 0, 0}, {1, 3, 0}, {4, 3, 0}})},
      {"open fit", OdGeNurbCurve3d::through(star, false)},
      {"closed fit", OdGeNurbCurve3d::through(star, true)},
      {"polyline", polyline(false)},
      {"closed polyline", polyline(true)},
  };
}

/// The length of a polygon of many points on the curve, the corners of the polylines among them, with the
/// error of the polygon, which falls with the square of the number, taken out.
double polygonLength(const OdGeCurve3d& curve, double to, int count = 37000) {
  const auto measure = [&](int n) {
    double sum = 0;
    OdGePoint3d last = curve.evalPoint(curve.startParam());
    for (int i = 1; i <= n; ++i) {
      const OdGePoint3d next = curve.evalPoint(curve.startParam() + (to - curve.startParam()) * i / n);
      sum += next.distanceTo(last);
      last = next;
    }
    return sum;
  };
  return (4 * measure(2 * count) - measure(count)) / 3;
}

OdResult thrownBy(const std::function<void()>& action) {
  try {
    action();
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

TEST(Curve, LengthsAreThoseOfPolygonsWithManyPoints) {
  for (const auto& [name, curve] : everyCurve()) {
    for (const double part : {0.37, 1.0}) {
      const double to = curve->startParam() + (curve->endParam() - curve->startParam()) * part;
      EXPECT_NEAR(curve->lengthTo(to), polygonLength(*curve, to), 2e-7 * curve->length()) << name;
    }
    EXPECT_EQ(curve->lengthTo(curve->startParam()), 0) << name;
  }
}

TEST(Curve, LengthsAreThoseOfClosedForms) {
  EXPECT_NEAR(quarter()->length(), OdaPI2, 1e-13);
  // 1/4 of the circumference for half axes 1 and 1/2: E(3/4), A&S 17.3.
  EXPECT_NEAR(ellipse(1, 0.5)->length(), 4 * 1.2110560275684595, 1e-13);
  EXPECT_NEAR(ellipse(0.5, 1, 0, OdaPI2)->length(), 1.2110560275684595, 1e-13);
  // A parabola y = x^2 from 0 to 1: sqrt(5) / 2 + asinh(2) / 4.
  EXPECT_NEAR(spline(2, {0, 0, 0, 1, 1, 1}, {{0, 0, 0}, {0.5, 0, 0}, {1, 1, 0}})->length(),
              std::sqrt(5) / 2 + std::asinh(2) / 4, 1e-13);
  // With u = t - 1 the cusp is (1 + u^3, 3/2 (1 - u^2)), and its speed 3 |u| sqrt(1 + u^2).
  EXPECT_NEAR(cusp()->lengthTo(1), 2 * std::sqrt(2) - 1, 1e-13);
  EXPECT_NEAR(cusp()->length(), 4 * std::sqrt(2) - 2, 1e-13);
  // Half circles of radius 2 to both sides.
  EXPECT_NEAR(
      OdGePolylineCurve3d({{0, 0, 0}, {4, 0, 0}, {8, 0, 0}, {12, 0, 0}}, {1, -1, 1, 0}, false).length(),
      6 * OdaPI, 1e-13);
}

TEST(Curve, ParametersAndLengthsAreInverse) {
  for (const auto& [name, curve] : everyCurve()) {
    double last = curve->startParam();
    for (int i = 0; i <= 50; ++i) {
      const double length = curve->length() * i / 50;
      const double param = curve->paramAtLength(length);
      EXPECT_NEAR(curve->lengthTo(param), length, 1e-11 * curve->length()) << name;
      EXPECT_GE(param, last) << name;
      last = param;
    }
    EXPECT_EQ(curve->paramAtLength(-1), curve->startParam()) << name;
    EXPECT_EQ(curve->paramAtLength(2 * curve->length()), curve->endParam()) << name;
  }
}

TEST(Curve, DerivativesAreThoseOfDifferences) {
  for (const auto& [name, curve] : everyCurve()) {
    const double range = curve->endParam() - curve->startParam();
    const double h = 1e-5 * range;
    for (const double part : {0.013, 0.51, 0.62, 0.987}) {
      const double param = curve->startParam() + range * part;
      const OdGeCurve3d::Evaluation at = curve->evaluate(param);
      const OdGeCurve3d::Evaluation before = curve->evaluate(param - h);
      const OdGeCurve3d::Evaluation behind = curve->evaluate(param + h);
      const double size = 1 + at.second.length();
      const OdGeVector3d first = (behind.point - before.point) / (2 * h);
      const OdGeVector3d second = (behind.first - before.first) / (2 * h);
      EXPECT_LT((first - at.first).length(), 1e-5 * size) << name << ' ' << part;
      EXPECT_LT((second - at.second).length(), 1e-3 * size) << name << ' ' << part;
    }
  }
}

TEST(Curve, NearestPointsAreNoFartherThanThoseOfManySamples) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> place(-12, 12);
  for (const auto& [name, curve] : everyCurve()) {
    for (int i = 0; i < 60; ++i) {
      const OdGePoint3d point(place(random), place(random), i % 3 ? 0 : place(random));
      const double found = curve->evalPoint(curve->closestParam(point)).distanceTo(point);
      double sampled = kInfinity;
      for (int k = 0; k <= 4000; ++k) {
        const double param = curve->startParam() + (curve->endParam() - curve->startParam()) * k / 4000;
        sampled = std::min(sampled, curve->evalPoint(param).distanceTo(point));
      }
      EXPECT_LE(found, sampled + 1e-12) << name << ' ' << point.x << ' ' << point.y << ' ' << point.z;
    }
    // A point of the curve is its own nearest point.
    for (int k = 0; k <= 97; ++k) {
      const double param = curve->startParam() + (curve->endParam() - curve->startParam()) * k / 97;
      const OdGePoint3d point = curve->evalPoint(param);
      EXPECT_LT(curve->evalPoint(curve->closestParam(point)).distanceTo(point), 1e-11 * (1 + curve->length()))
          << name;
    }
  }
}

TEST(Curve, NearestPointsOnTheAxesOfEllipses) {
  const struct {
    OdGePoint3d point;
    double distance;
  } cases[] = {
      {{0, 0, 0}, 2},     // the centre
      {{10, 0, 0}, 5},    // beyond the long axis
      {{4.9, 0, 0}, 0.1}, // within the circle of curvature, b^2 / a = 0.8, of the vertex
      {{0, -7, 0}, 5},    {{2.1, 0, 0}, 2 * std::sqrt(1 - 2.1 * 2.1 / 21)}, // where the foot leaves the axis
  };
  const OdGeEllipArc3d whole({}, {5, 0, 0}, {0, 2, 0}, 0, Oda2PI);
  const OdGeEllipArc3d lower({}, {5, 0, 0}, {0, 2, 0}, OdaPI, Oda2PI);
  for (const auto& [point, distance] : cases) {
    EXPECT_NEAR(whole.evalPoint(whole.closestParam(point)).distanceTo(point), distance, 1e-12) << point.x;
    EXPECT_NEAR(lower.evalPoint(lower.closestParam(point)).distanceTo(point), distance, 1e-12) << point.x;
  }
  // The nearest point of the whole ellipse is not on the arc; a minimum on its far side is.
  const OdGePoint3d above(0.1, 0.2, 0);
  double sampled = kInfinity;
  for (int i = 0; i <= 100000; ++i)
    sampled = std::min(sampled, lower.evalPoint(OdaPI + OdaPI * i / 100000).distanceTo(above));
  EXPECT_NEAR(lower.evalPoint(lower.closestParam(above)).distanceTo(above), sampled, 1e-9);
}

TEST(Curve, ExtentsHoldTheCurveAndTouchIt) {
  for (const auto& [name, curve] : everyCurve()) {
    const OdGeExtents3d box = curve->extents();
    OdGeExtents3d sampled;
    for (int k = 0; k <= 40000; ++k)
      sampled.addPoint(
          curve->evalPoint(curve->startParam() + (curve->endParam() - curve->startParam()) * k / 40000));
    EXPECT_TRUE(box.contains(sampled.minPoint(), 1e-9) && box.contains(sampled.maxPoint(), 1e-9)) << name;
    EXPECT_LT(box.minPoint().distanceTo(sampled.minPoint()), 1e-5 * curve->length()) << name;
    EXPECT_LT(box.maxPoint().distanceTo(sampled.maxPoint()), 1e-5 * curve->length()) << name;
  }
}

TEST(Curve, ClosedAndPeriodic) {
  std::string closed;
  std::string periodic;
  for (const auto& [name, curve] : everyCurve()) {
    if (curve->isClosed()) closed += std::string(name) + ", ";
    if (curve->isPeriodic()) periodic += std::string(name) + ", ";
  }
  EXPECT_EQ(closed, "circle, ellipse, unclamped spline, closed fit, closed polyline, ");
  EXPECT_EQ(periodic, "circle, ellipse, closed fit, ");
}

TEST(Curve, FitSplinesGoThroughTheirPointsWithoutKinks) {
  const Points points = {{0, 0, 0}, {5, 1, 0}, {6, 6, 2}, {-1, 4, 1}};
  for (const bool closed : {false, true}) {
    const auto curve = OdGeNurbCurve3d::through(points, closed);
    double param = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
      if (i > 0) param += points[i].distanceTo(points[i - 1]);
      EXPECT_TRUE(curve->evalPoint(param).isEqualTo(points[i], 1e-12));
      if (i == 0 || i + 1 == points.size()) continue;
      EXPECT_TRUE(curve->evaluate(param - 1e-9).second.isEqualTo(curve->evaluate(param + 1e-9).second, 1e-6));
    }
    const OdGeVector3d atStart = curve->evaluate(0).second;
    const OdGeVector3d atEnd = curve->evaluate(curve->endParam()).second;
    EXPECT_TRUE(atStart.isEqualTo(atEnd, 1e-9));
    EXPECT_EQ(atStart.isZeroLength(1e-9), !closed);
  }
  const auto bent = OdGeNurbCurve3d::through(points, false, {0, 2, 0}, {0, 0, -3});
  EXPECT_TRUE(bent->evaluate(0).first.isCodirectionalTo({0, 1, 0}, 1e-9));
  EXPECT_TRUE(bent->evaluate(bent->endParam()).first.isCodirectionalTo({0, 0, -1}, 1e-9));
  // Two points make a line, a closed curve through two goes there and back.
  EXPECT_NEAR(OdGeNurbCurve3d::through({{0, 0, 0}, {3, 4, 0}}, false)->length(), 5, 1e-12);
  EXPECT_TRUE(OdGeNurbCurve3d::through({{0, 0, 0}, {3, 4, 0}}, true)->isClosed());
}

TEST(Curve, FarFromTheOriginSplinesAreMeasuredAsNearIt) {
  const OdGeVector3d far(5e8, -3e8, 2e8);
  Points controls = {{0, 0, 0}, {1, 2, 0}, {3, 2, 0}, {4, 0, 0}, {5, 1, 0}};
  const std::vector<double> knots = {0, 0, 0, 0, 1, 2, 2, 2, 2};
  const double near = spline(3, knots, controls)->length();
  for (OdGePoint3d& point : controls) point += far;
  EXPECT_NEAR(spline(3, knots, controls)->length(), near, 1e-6);
}

TEST(Curve, RefusesWhatDescribesNoCurve) {
  const Points three = {{0, 0, 0}, {1, 1, 0}, {2, 0, 0}};
  const auto bspline = [&](int degree, std::vector<double> knots, Points controls,
                           std::vector<double> weights = {}) {
    return thrownBy([&] { spline(degree, knots, controls, weights); });
  };
  const struct {
    const char* name;
    OdResult expected;
    OdResult code;
  } cases[] = {
      {"no degree", eInvalidInput, bspline(0, {0, 0, 1, 1}, three)},
      {"degree 26", eInvalidInput, bspline(26, std::vector<double>(54, 0), Points(27))},
      {"too few points", eInvalidInput, bspline(3, {0, 0, 0, 0, 1, 1, 1}, three)},
      {"too few knots", eInvalidInput, bspline(2, {0, 0, 0, 1, 1}, three)},
      {"falling knots", eInvalidInput, bspline(2, {0, 0, 1, 0, 1, 1}, three)},
      {"knots that tear", eInvalidInput,
       bspline(1, {0, 0, 1, 1, 2, 2}, {{0, 0, 0}, {1, 0, 0}, {2, 5, 0}, {3, 5, 0}})},
      {"no number", eInvalidInput, bspline(2, {0, 0, 0, 1, 1, kNan}, three)},
      {"no place", eInvalidInput, bspline(2, {0, 0, 0, 1, 1, 1}, {{0, 0, 0}, {kInfinity, 0, 0}, {1, 0, 0}})},
      {"no range", eDegenerateGeometry, bspline(2, {1, 1, 1, 1, 1, 1}, three)},
      {"weight 0", eInvalidInput, bspline(2, {0, 0, 0, 1, 1, 1}, three, {1, 0, 1})},
      {"few weights", eInvalidInput, bspline(2, {0, 0, 0, 1, 1, 1}, three, {1, 1})},
      {"one place", eDegenerateGeometry, bspline(2, {0, 0, 0, 1, 1, 1}, Points(3))},
      {"no fit point", eDegenerateGeometry, thrownBy([] { OdGeNurbCurve3d::through({}, true); })},
      {"one fit point", eDegenerateGeometry, thrownBy([] { OdGeNurbCurve3d::through(Points(4), false); })},
      {"radius 0", eDegenerateGeometry, thrownBy([] { ellipse(0, 0); })},
      {"flat", eDegenerateGeometry, thrownBy([] { ellipse(4, 0); })},
      {"no angle", eInvalidInput, thrownBy([] { ellipse(2, 1, 3, 3); })},
      {"more than a turn", eInvalidInput, thrownBy([] { ellipse(2, 1, 0, 7); })},
      {"no length", eDegenerateGeometry,
       thrownBy([] { OdGeLinearEnt3d(OdGePoint3d(1, 1, 1), OdGePoint3d(1, 1, 1)); })},
      {"one vertex", eDegenerateGeometry, thrownBy([] {
         OdGePolylineCurve3d({{1, 1, 1}}, {}, true);
       })},
      {"one vertex thrice", eDegenerateGeometry, thrownBy([] {
         OdGePolylineCurve3d(Points(3), {1, 1, 1}, true);
       })},
      {"no bulge", eInvalidInput, thrownBy([] {
         OdGePolylineCurve3d({{0, 0, 0}, {1, 0, 0}}, {kNan, 0}, false);
       })},
      {"no normal", eDegenerateGeometry, thrownBy([] {
         OdGePolylineCurve3d({{0, 0, 0}, {1, 0, 0}}, {}, false, {});
       })},
  };
  for (const auto& [name, expected, code] : cases) EXPECT_EQ(code, expected) << name;
}

TEST(Curve, EndsAndBasesOfEndlessLines) {
  const OdGeLinearEnt3d ray({1, 2, 0}, OdGeVector3d(3, 4, 0), 0, OdGeLinearEnt3d::kEndless);
  EXPECT_TRUE(ray.hasStart());
  EXPECT_FALSE(ray.hasEnd());
  EXPECT_EQ(ray.evalPoint(5), OdGePoint3d(4, 6, 0));
  EXPECT_EQ(ray.closestParam({-3, -3, 0}), 0);
  const OdGeLinearEnt3d line({1, 2, 0}, OdGeVector3d(3, 4, 0), -OdGeLinearEnt3d::kEndless,
                             OdGeLinearEnt3d::kEndless);
  EXPECT_FALSE(line.hasStart());
  EXPECT_NEAR(line.closestParam({-2, -2, 9}), -5, 1e-14);
  EXPECT_EQ(thrownBy([&] { line.extents(); }), eInvalidExtents);
}

} // namespace
