#include "Ge/GePolylineCurve3d.h"
#include "Ge/GePolylineOffset.h"
#include "OdPlatform.h"
#include <gmock/gmock.h>
#include <random>

namespace {

OdGePolylineCurve3d curveOf(const OdGeFlatPolyline& flat) {
  std::vector<OdGePoint3d> places;
  for (const OdGePoint2d& point : flat.points) places.emplace_back(point.x, point.y, 0);
  return {places, flat.bulges, flat.isClosed};
}
double totalLength(const std::vector<OdGeFlatPolyline>& all) {
  double sum = 0;
  for (const OdGeFlatPolyline& each : all) sum += curveOf(each).length();
  return sum;
}
OdGeFlatPolyline square(double side) {
  return {{{0, 0}, {side, 0}, {side, side}, {0, side}}, {0, 0, 0, 0}, true};
}

OdGeFlatPolyline standing(OdGeFlatPolyline lying) {
  for (OdGePoint2d& point : lying.points) point = OdGePoint2d(-point.y, point.x);
  return lying;
}

TEST(PolylineOffset, LengthsOfKnownFigures) {
  const OdGeFlatPolyline circle = {{{-2, 0}, {2, 0}}, {1, 1}, true};
  const OdGeFlatPolyline slot = {{{0, 0}, {10, 0}, {10, 4}, {0, 4}}, {0, 1, 0, 1}, true};
  // Two rooms of 4 by 4 and a corridor between them, 2 long and 1 wide.
  const OdGeFlatPolyline rooms = {{{0, 0},
                                   {4, 0},
                                   {4, 1.5},
                                   {6, 1.5},
                                   {6, 0},
                                   {10, 0},
                                   {10, 4},
                                   {6, 4},
                                   {6, 2.5},
                                   {4, 2.5},
                                   {4, 4},
                                   {0, 4}},
                                  {},
                                  true};
  const OdGeFlatPolyline corner = {{{0, 0}, {5, 0}, {5, 5}}, {}, false};
  const OdGeFlatPolyline clockwise = {{{0, 0}, {0, 4}, {4, 4}, {4, 0}}, {}, true};
  const OdGeFlatPolyline bow = {{{0, 0}, {6, 0}, {6, 3}}, {0.5, 0, 0}, false};
  const struct {
    const char* name;
    OdGeFlatPolyline source;
    double distance;
    std::size_t count;
    double length;
  } cases[] = {
      {"square grows to the right", square(4), 1, 1, 24},
      {"square shrinks to the left", square(4), -1, 1, 8},
      {"nothing is left", square(4), -2.5, 0, 0},
      {"clockwise shrinks to the right", clockwise, 1, 1, 8},
      {"circle grows", circle, 1.5, 1, 7 * OdaPI},
      {"circle shrinks", circle, -1.5, 1, OdaPI},
      {"no circle is left", circle, -2.5, 0, 0},
      {"slot", slot, 1, 1, 20 + 6 * OdaPI},
      {"corridor closes", rooms, -1, 2, 16},
      {"corner outside", corner, 1, 1, 12},
      {"corner inside", corner, -1, 1, 8},
  };
  for (const auto& [name, source, distance, count, length] : cases)
    for (const OdGeFlatPolyline& figure : {source, standing(source)}) {
      const std::vector<OdGeFlatPolyline> found = odGeOffset(figure, distance);
      EXPECT_EQ(found.size(), count) << name;
      EXPECT_NEAR(totalLength(found), length, 1e-9) << name;
      for (const OdGeFlatPolyline& each : found) EXPECT_EQ(each.isClosed, source.isClosed) << name;
    }
  EXPECT_THROW(odGeOffset({{{1, 1}, {1, 1}}, {}, true}, 1), OdError);
  EXPECT_THROW(odGeOffset(bow, std::nan("")), OdError);
}

TEST(PolylineOffset, EveryPointKeepsItsDistance) {
  // Mitred corners are farther away, all else is at the distance exactly.
  std::mt19937 random(11);
  std::uniform_real_distribution<double> radius(6, 10);
  std::uniform_real_distribution<double> bend(-0.5, 0.5);
  for (int round = 0; round < 60; ++round) {
    OdGeFlatPolyline star;
    star.isClosed = round % 2 == 0;
    for (int i = 0; i < 12; ++i) {
      const double reach = radius(random);
      star.points.emplace_back(reach * std::cos(i * Oda2PI / 12), reach * std::sin(i * Oda2PI / 12));
      star.bulges.push_back(round % 3 == 0 ? 0 : bend(random));
    }
    const OdGePolylineCurve3d source = curveOf(star);
    for (const double distance : {0.3, -0.4, 1.5, -2.0}) {
      const std::vector<OdGeFlatPolyline> found = odGeOffset(star, distance);
      EXPECT_FALSE(found.empty()) << round;
      double nearest = 1e9;
      for (const OdGeFlatPolyline& each : found) {
        const OdGePolylineCurve3d curve = curveOf(each);
        for (int i = 0; i <= 500; ++i) {
          const OdGePoint3d place = curve.evalPoint(curve.endParam() * i / 500);
          nearest = std::min(nearest, source.evalPoint(source.closestParam(place)).distanceTo(place));
        }
      }
      EXPECT_NEAR(nearest, std::fabs(distance), 1e-6) << round << ' ' << distance;
    }
  }
}

} // namespace
