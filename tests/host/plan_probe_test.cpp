// Curves against rectangles: the answers agree with a great many points of the curve.
#include "Ge/GeEllipArc3d.h"
#include "Ge/GeNurbCurve3d.h"
#include "Ge/GePolylineCurve3d.h"
#include "hostsel/PlanProbe.h"
#include <gtest/gtest.h>
#include <memory>
#include <random>

namespace {

using host::PlanBox;
using host::PlanProbe;

class Random {
public:
  double number(double low, double high) {
    return std::uniform_real_distribution<double>(low, high)(m_engine);
  }
  OdGePoint3d point(double size) { return {number(-size, size), number(-size, size), number(-size, size)}; }
  OdGeMatrix3d view() {
    const OdGeVector3d axis = point(1).asVector();
    return OdGeMatrix3d::translation(point(5).asVector()) * OdGeMatrix3d::scaling(OdGeScale3d(2, 0.5, 1)) *
           OdGeMatrix3d::rotation(number(0, 6), axis);
  }
  std::unique_ptr<OdGeCurve3d> curve(int kind) {
    const double from = number(-3, 3);
    std::vector<OdGePoint3d> points;
    for (int i = 0; i < 8; ++i) points.push_back(point(10));
    if (kind == 0) {
      const OdGeVector3d major = points[1].asVector();
      const OdGeVector3d minor =
          OdGeVector3d(major.crossProduct(points[2].asVector())).normalize() * number(0.1, 9);
      return std::make_unique<OdGeEllipArc3d>(points[0], major, minor, from, from + number(0.1, 6.2));
    }
    if (kind == 1) {
      std::vector<double> bulges;
      for (OdGePoint3d& vertex : points) {
        vertex.z = 0;
        bulges.push_back(bulges.size() % 2 ? 0 : number(-2, 2));
      }
      return std::make_unique<OdGePolylineCurve3d>(points, bulges, true);
    }
    std::vector<double> weights;
    for (int i = 0; i < 8; ++i) weights.push_back(number(0.1, 10));
    return std::make_unique<OdGeNurbCurve3d>(3, std::vector<double>{0, 0, 0, 0, 1, 2, 2.5, 4, 5, 5, 5, 5},
                                             points, weights);
  }

private:
  std::mt19937 m_engine{20240517};
};

TEST(PlanProbe, AgreesWithThePointsOfTheCurve) {
  constexpr int kSamples = 4000;
  Random random;
  int touched = 0;
  for (int round = 0; round < 450; ++round) {
    const std::unique_ptr<OdGeCurve3d> curve = random.curve(round % 3);
    const OdGeMatrix3d toPlan = random.view();
    PlanBox box;
    const double size = round % 2 ? 30 : 5;
    for (int corner = 0; corner < 2; ++corner) box.add(random.point(size).convert2d());
    PlanBox whole;
    double nearest = std::numeric_limits<double>::infinity(); // of all points
    double nearestInBox = nearest;
    double step = 0;
    bool isTouched = false;
    OdGePoint2d previous;
    for (int i = 0; i <= kSamples; ++i) {
      const double part = static_cast<double>(i) / kSamples;
      const double param = curve->startParam() + (curve->endParam() - curve->startParam()) * part;
      const OdGePoint2d point = (toPlan * curve->evalPoint(param)).convert2d();
      whole.add(point);
      if (i > 0) step = std::max(step, point.distanceTo(previous));
      previous = point;
      isTouched = isTouched || box.holds(point);
      nearest = std::min(nearest, point.distanceTo(box.center()));
      if (box.holds(point)) nearestInBox = std::min(nearestInBox, point.distanceTo(box.center()));
    }
    const auto ask = [&](PlanProbe::Question question, const PlanBox& rectangle) {
      PlanProbe probe(rectangle, question);
      probe.addCurve(*curve, toPlan);
      return probe;
    };
    if (isTouched) {
      EXPECT_TRUE(ask(PlanProbe::Question::isTouched, box).isTouched()) << round;
      const double distance = ask(PlanProbe::Question::howNear, box).distance();
      EXPECT_LE(distance, nearestInBox + 1e-4) << round;
      EXPECT_GE(distance, nearest - step) << round;
      ++touched;
    } else if (PlanBox closer = box.grown(-step); !closer.isEmpty()) {
      EXPECT_FALSE(ask(PlanProbe::Question::isTouched, closer).isTouched()) << round;
    }
    EXPECT_TRUE(ask(PlanProbe::Question::isInside, whole.grown(step)).isInside()) << round;
    whole.right -= whole.width() * 1e-3;
    EXPECT_FALSE(ask(PlanProbe::Question::isInside, whole).isInside()) << round;
  }
  EXPECT_GT(touched, 100) << "otherwise the test asks too little";
}

} // namespace
