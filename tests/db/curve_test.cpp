#include "Db2dPolyline.h"
#include "Db3dPolyline.h"
#include "DbArc.h"
#include "DbEllipse.h"
#include "DbIdMapping.h"
#include "DbLine.h"
#include "DbPolyline.h"
#include "DbSpline.h"
#include "DbXline.h"
#include "tables_drawing.h"
#include <cmath>
#include <limits>

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

OdDbLinePtr line(const OdGePoint3d& from, const OdGePoint3d& to) {
  OdDbLinePtr made = OdDbLine::createObject();
  made->setStartPoint(from);
  made->setEndPoint(to);
  return made;
}
template <class Circular>
OdSmartPtr<Circular> round(const OdGePoint3d& center, double radius) {
  OdSmartPtr<Circular> made = Circular::createObject();
  made->setCenter(center);
  made->setRadius(radius);
  return made;
}
OdDbArcPtr arc(double radius, double start, double end) {
  OdDbArcPtr made = round<OdDbArc>({1, 1, 0}, radius);
  made->setStartAngle(start);
  made->setEndAngle(end);
  return made;
}
OdDbEllipsePtr ellipse(const OdGeVector3d& major, double ratio, double start = 0, double end = Oda2PI) {
  OdDbEllipsePtr made = OdDbEllipse::createObject();
  made->set({2, 1, 3}, OdGeVector3d::kZAxis, major, ratio, start, end);
  return made;
}
OdDbPolylinePtr polyline(std::initializer_list<std::array<double, 3>> vertices, bool closed) {
  OdDbPolylinePtr made = OdDbPolyline::createObject();
  for (const auto& [x, y, bulge] : vertices) made->addVertexAt(made->numVerts(), {x, y}, bulge);
  made->setClosed(closed);
  return made;
}
OdDbSplinePtr parabola() { // y = x^2 from 0 to 1
  OdDbSplinePtr made = OdDbSpline::createObject();
  made->setNurbsData(2, false, false, false, {{0, 0, 0}, {0.5, 0, 0}, {1, 1, 0}}, {0, 0, 0, 1, 1, 1}, {});
  return made;
}
template <class Endless>
OdSmartPtr<Endless> endless(const OdGePoint3d& base, const OdGeVector3d& way) {
  OdSmartPtr<Endless> made = Endless::createObject();
  made->setBasePoint(base);
  made->setUnitDir(way);
  return made;
}

OdDb2dPolylinePtr oldPolyline(SmallDrawing& drawing) {
  OdDb2dPolylinePtr made = OdDb2dPolyline::createObject();
  drawing.block(drawing.db->getModelSpaceId())->appendOdDbEntity(made);
  for (const auto& [x, bulge] : {std::pair(0, 0), {4, 1}, {8, 0}}) {
    const OdDb2dVertexPtr vertex = OdDb2dVertex::createObject();
    vertex->setPosition(OdGePoint3d(x, 0, 0));
    if (bulge != 0) vertex->setBulge(bulge);
    made->appendVertex(vertex);
  }
  return made;
}
OdDb3dPolylinePtr spatial(SmallDrawing& drawing) {
  OdDb3dPolylinePtr made = OdDb3dPolyline::createObject();
  drawing.block(drawing.db->getModelSpaceId())->appendOdDbEntity(made);
  for (const OdGePoint3d& place : {OdGePoint3d(0, 0, 0), {3, 4, 0}, {3, 4, 12}}) {
    const OdDb3dPolylineVertexPtr vertex = OdDb3dPolylineVertex::createObject();
    vertex->setPosition(place);
    made->appendVertex(vertex);
  }
  return made;
}

double lengthOf(const OdDbCurve& curve) {
  double end = kNan;
  double length = kNan;
  EXPECT_EQ(curve.getEndParam(end), eOk);
  EXPECT_EQ(curve.getDistAtParam(end, length), eOk);
  return length;
}
OdGePoint3d pointAt(const OdDbCurve& curve, double distance) {
  OdGePoint3d point(kNan, kNan, kNan);
  EXPECT_EQ(curve.getPointAtDist(distance, point), eOk);
  return point;
}

TEST(Curves, RangeLengthAndMiddle) {
  SmallDrawing drawing;
  const OdDbCirclePtr tilted = round<OdDbCircle>({7, 0, 0}, 2);
  tilted->setNormal({1, 0, 0}); // the plane's axes are then those of Y and Z
  const OdDbPolylinePtr lifted = polyline({{0, 0, 1}, {2, 0, 0}}, false);
  lifted->setElevation(3);
  lifted->setNormal({0, 0, -1});                      // its X axis leads against that of the world
  const double quarterOfEllipse = 1.2110560275684595; // E(3/4), half axes 1 and 1/2
  const struct {
    const char* name;
    OdDbCurvePtr curve;
    double start, end, length;
    OdGePoint3d middle;
    bool closed;
  } cases[] = {
      {"line", line({1, 1, 1}, {4, 5, 13}), 0, 13, 13, {2.5, 3, 7}, false},
      {"circle", tilted, 0, Oda2PI, 4 * OdaPI, {7, -2, 0}, true},
      {"arc over 0", arc(2, 1.5 * OdaPI, OdaPI2), 1.5 * OdaPI, 2.5 * OdaPI, 2 * OdaPI, {3, 1, 0}, false},
      {"ellipse", ellipse({0, 2, 0}, 0.5), 0, Oda2PI, 8 * quarterOfEllipse, {2, -1, 3}, true},
      {"half ellipse", ellipse({0, 2, 0}, 0.5, 0, OdaPI), 0, OdaPI, 4 * quarterOfEllipse, {1, 1, 3}, false},
      {"polyline",
       polyline({{0, 0, 0}, {4, 0, 1}, {4, 2, 0}, {0, 2, 1}}, true),
       0,
       4,
       8 + 2 * OdaPI,
       {4, 2, 0},
       true},
      {"polyline below", lifted, 0, 1, OdaPI, {-1, -1, -3}, false},
      {"old polyline", oldPolyline(drawing), 0, 2, 4 + 2 * OdaPI, {}, false},
      {"spatial polyline", spatial(drawing), 0, 2, 17, {3, 4, 3.5}, false},
      {"spline", parabola(), 0, 1, std::sqrt(5) / 2 + std::asinh(2) / 4, {}, false},
  };
  for (const auto& [name, curve, start, end, length, middle, closed] : cases) {
    double param = kNan;
    EXPECT_EQ(curve->getStartParam(param), eOk) << name;
    EXPECT_NEAR(param, start, 1e-12) << name;
    EXPECT_EQ(curve->getEndParam(param), eOk) << name;
    EXPECT_NEAR(param, end, 1e-12) << name;
    EXPECT_NEAR(lengthOf(*curve), length, 1e-12 * length) << name;
    if (middle.x != 0) {
      EXPECT_TRUE(pointAt(*curve, length / 2).isEqualTo(middle, 1e-12)) << name;
    }
    EXPECT_EQ(curve->isClosed(), closed) << name;
    // There and back.
    for (const double part : {0.0, 0.1, 0.77, 1.0}) {
      double distance = kNan;
      const OdGePoint3d place = pointAt(*curve, part * length);
      ASSERT_EQ(curve->getParamAtPoint(place, param), eOk) << name;
      ASSERT_EQ(curve->getDistAtPoint(place, distance), eOk) << name;
      EXPECT_NEAR(distance, closed && part == 1 ? 0 : part * length, 1e-7) << name << ' ' << part;
      OdGePoint3d nearest;
      EXPECT_EQ(curve->getClosestPointTo(place, nearest), eOk);
      EXPECT_TRUE(nearest.isEqualTo(place, 1e-9)) << name;
    }
    OdGePoint3d place;
    OdGeVector3d way;
    for (const double outside : {start - 1, end + 1, kNan, std::numeric_limits<double>::infinity()})
      EXPECT_EQ(curve->getPointAtParam(outside, place), eInvalidInput) << name;
    EXPECT_EQ(curve->getPointAtDist(-1, place), eInvalidInput) << name;
    EXPECT_EQ(curve->getPointAtDist(length + 1, place), eInvalidInput) << name;
    EXPECT_EQ(curve->getFirstDeriv(OdGePoint3d(100, 0, 0), way), eInvalidInput) << name;
    EXPECT_EQ(curve->getPointAtDist(length * (1 + 1e-15), place), eOk) << name << ": rounding is no error";
  }
}

TEST(Curves, DerivativesHaveTheDirectionOfTheCurve) {
  const struct {
    OdDbCurvePtr curve;
    double param;
    OdGeVector3d first, second;
  } cases[] = {
      {line({0, 0, 0}, {0, 5, 0}), 2, {0, 1, 0}, {0, 0, 0}},
      {round<OdDbCircle>({5, 5, 0}, 3), OdaPI2, {-3, 0, 0}, {0, -3, 0}},
      {ellipse({4, 0, 0}, 0.25), OdaPI, {0, -1, 0}, {4, 0, 0}},
      {polyline({{0, 0, 0}, {2, 0, 0}, {2, 6, 0}}, false), 1, {0, 6, 0}, {0, 0, 0}},
      {polyline({{0, 0, 0}, {2, 0, 0}, {2, 6, 0}}, false), 2, {0, 6, 0}, {0, 0, 0}},
      {polyline({{0, 0, 1}, {2, 0, 0}}, false), 0, {0, -OdaPI, 0}, {OdaPI * OdaPI, 0, 0}},
      {parabola(), 0.5, {1, 1, 0}, {0, 2, 0}},
      {endless<OdDbXline>({1, 1, 0}, {0, -7, 0}), -3, {0, -1, 0}, {0, 0, 0}},
  };
  for (const auto& [curve, param, first, second] : cases) {
    OdGeVector3d derivative;
    EXPECT_EQ(curve->getFirstDeriv(param, derivative), eOk);
    EXPECT_TRUE(derivative.isEqualTo(first, 1e-9)) << curve->dxfName() << ' ' << param;
    EXPECT_EQ(curve->getSecondDeriv(param, derivative), eOk);
    EXPECT_TRUE(derivative.isEqualTo(second, 1e-9)) << curve->dxfName() << ' ' << param;
  }
}

TEST(Curves, EndlessLinesSayWhatTheyDoNotHave) {
  const OdDbRayPtr ray = endless<OdDbRay>({1, 2, 3}, {0, 0, 5});
  const OdDbXlinePtr xline = endless<OdDbXline>({1, 2, 3}, {3, 4, 0});
  double number = 0;
  OdGePoint3d point;
  EXPECT_EQ(ray->unitDir(), OdGeVector3d::kZAxis);
  EXPECT_EQ(ray->getStartParam(number), eOk);
  EXPECT_EQ(ray->getEndParam(number), eNotApplicable);
  EXPECT_EQ(ray->getEndPoint(point), eNotApplicable);
  EXPECT_EQ(ray->getPointAtDist(7, point), eOk);
  EXPECT_EQ(point, OdGePoint3d(1, 2, 10));
  EXPECT_EQ(ray->getPointAtParam(-1, point), eInvalidInput);
  EXPECT_EQ(ray->getClosestPointTo({1, 2, -4}, point, true), eOk);
  EXPECT_EQ(point, OdGePoint3d(1, 2, -4));
  EXPECT_EQ(xline->getStartParam(number), eNotApplicable);
  EXPECT_EQ(xline->getDistAtParam(1, number), eNotApplicable);
  EXPECT_EQ(xline->getPointAtDist(1, point), eNotApplicable);
  EXPECT_EQ(xline->getPointAtParam(-5, point), eOk);
  EXPECT_EQ(point, OdGePoint3d(-2, -2, 3));
  OdGeExtents3d box;
  EXPECT_EQ(xline->getGeomExtents(box), eInvalidExtents);
  EXPECT_THROW(ray->setUnitDir({0, 0, 0}), OdError);
  EXPECT_EQ(OdDbRay::createObject()->unitDir(), OdGeVector3d::kXAxis);
}

TEST(Curves, OffsetsLeadToTheSideThatTheirKindSays) {
  OdRxObjectPtrArray kept;
  const auto offset = [&kept](const OdDbCurvePtr& curve, double distance) {
    const unsigned int before = kept.size();
    EXPECT_EQ(curve->getOffsetCurves(distance, kept), eOk);
    EXPECT_EQ(kept.size(), before + 1);
    return kept.last();
  };
  const OdDbLinePtr source = line({0, 0, 0}, {10, 0, 0});
  source->setColorIndex(3);
  const OdDbLinePtr beside = offset(source, 2);
  EXPECT_EQ(beside->startPoint(), OdGePoint3d(0, -2, 0));
  EXPECT_EQ(beside->endPoint(), OdGePoint3d(10, -2, 0));
  EXPECT_EQ(beside->colorIndex(), 3);
  EXPECT_FALSE(beside->isDBRO());
  EXPECT_EQ(OdDbRayPtr(offset(endless<OdDbRay>({0, 0, 0}, {1, 0, 0}), 2))->basePoint(), OdGePoint3d(0, 2, 0));
  EXPECT_EQ(OdDbXlinePtr(offset(endless<OdDbXline>({0, 0, 5}, {0, 1, 0}), 2))->basePoint(),
            OdGePoint3d(-2, 0, 5));
  EXPECT_EQ(OdDbCirclePtr(offset(round<OdDbCircle>({0, 0, 0}, 3), 2))->radius(), 5);
  EXPECT_EQ(OdDbArcPtr(offset(arc(3, 0, 1), -2))->radius(), 1);
  EXPECT_EQ(OdDbEllipsePtr(offset(ellipse({0, 3, 0}, 1), 2))->majorAxis(), OdGeVector3d(0, 5, 0));
  const OdDbPolylinePtr square = polyline({{0, 0, 0}, {4, 0, 0}, {4, 4, 0}, {0, 4, 0}}, true);
  square->setElevation(3);
  const OdDbPolylinePtr grown = offset(square, 1);
  EXPECT_NEAR(lengthOf(*grown), 24, 1e-12);
  EXPECT_EQ(grown->elevation(), 3);
  OdRxObjectPtrArray none;
  EXPECT_EQ(square->getOffsetCurves(-2.5, none), eInvalidInput);
  EXPECT_EQ(round<OdDbCircle>({0, 0, 0}, 3)->getOffsetCurves(-3, none), eInvalidInput);
  EXPECT_EQ(source->getOffsetCurves(kNan, none), eInvalidInput);
  EXPECT_EQ(ellipse({3, 0, 0}, 0.5)->getOffsetCurves(1, none), eNotApplicable);
  EXPECT_EQ(parabola()->getOffsetCurves(1, none), eNotApplicable);
  EXPECT_EQ(endless<OdDbRay>({0, 0, 0}, {0, 0, 1})->getOffsetCurves(1, none), eDegenerateGeometry);
  EXPECT_TRUE(none.isEmpty());
}

TEST(Curves, DamagedOnesAnswerWithErrors) {
  SmallDrawing drawing;
  const OdDbObjectId space = drawing.db->getModelSpaceId();
  const auto spline = [&](std::initializer_list<SmallDrawing::Group> groups) {
    return drawing.addRaw("SPLINE", space, groups);
  };
  const struct {
    const char* name;
    OdDbObjectId id;
    OdResult expected;
  } cases[] = {
      {"falling knots",
       spline({{100, "AcDbEntity"},
               {100, "AcDbSpline"},
               {71, 1},
               {40, 0.0},
               {40, 1.0},
               {40, 0.5},
               {40, 2.0},
               {10, 0.0},
               {20, 0.0},
               {30, 0.0},
               {10, 1.0},
               {20, 0.0},
               {30, 0.0}}),
       eInvalidInput},
      {"few knots",
       spline({{100, "AcDbEntity"},
               {100, "AcDbSpline"},
               {71, 3},
               {40, 0.0},
               {40, 1.0},
               {10, 0.0},
               {20, 0.0},
               {30, 0.0}}),
       eInvalidInput},
      {"nothing", spline({{100, "AcDbEntity"}, {100, "AcDbSpline"}}), eDegenerateGeometry},
      {"flat ellipse",
       drawing.addRaw(
           "ELLIPSE", space,
           {{100, "AcDbEntity"}, {100, "AcDbEllipse"}, {11, 1.0}, {21, 0.0}, {31, 0.0}, {40, 0.0}}),
       eInvalidInput},
      {"ellipse without axis",
       drawing.addRaw("ELLIPSE", space,
                      {{100, "AcDbEntity"}, {100, "AcDbEllipse"}, {11, 0.0}, {21, 0.0}, {31, 0.0}}),
       eDegenerateGeometry},
      {"circle", drawing.addRaw("CIRCLE", space, {{100, "AcDbEntity"}, {100, "AcDbCircle"}, {40, 0.0}}),
       eDegenerateGeometry},
      {"line", drawing.addRaw("LINE", space, {{100, "AcDbEntity"}, {100, "AcDbLine"}}), eDegenerateGeometry},
      {"ray", drawing.addRaw("RAY", space, {{100, "AcDbEntity"}, {100, "AcDbRay"}, {11, 0.0}, {21, 0.0}}),
       eDegenerateGeometry},
      {"polyline without vertices",
       drawing.addRaw("POLYLINE", space, {{100, "AcDbEntity"}, {100, "AcDb3dPolyline"}}),
       eDegenerateGeometry},
      {"coincident vertices",
       drawing.addRaw("LWPOLYLINE", space,
                      {{100, "AcDbEntity"},
                       {100, "AcDbPolyline"},
                       {90, 2},
                       {10, 1.0},
                       {20, 1.0},
                       {42, 1.0},
                       {10, 1.0},
                       {20, 1.0}}),
       eDegenerateGeometry},
  };
  for (const auto& [name, id, expected] : cases) {
    const OdDbCurvePtr curve = id.safeOpenObject();
    double number = 0;
    OdGePoint3d point;
    EXPECT_EQ(curve->getStartParam(number), expected) << name;
    EXPECT_EQ(curve->getPointAtDist(0, point), expected) << name;
    EXPECT_EQ(curve->getClosestPointTo({}, point), expected) << name;
  }
}

TEST(Curves, AnswersFollowEveryChange) {
  SmallDrawing drawing;
  const OdDbPolylinePtr light = polyline({{0, 0, 0}, {3, 0, 0}}, false);
  EXPECT_NEAR(lengthOf(*light), 3, 1e-14);
  light->addVertexAt(2, {3, 4});
  EXPECT_NEAR(lengthOf(*light), 7, 1e-14);
  light->setClosed(true);
  EXPECT_NEAR(lengthOf(*light), 12, 1e-14);

  const OdDb2dPolylinePtr old = oldPolyline(drawing);
  EXPECT_NEAR(lengthOf(*old), 4 + 2 * OdaPI, 1e-12);
  drawing.db->startUndoRecord();
  {
    auto vertices = old->vertexIterator();
    OdDb2dVertexPtr(vertices->entity(OdDb::kForWrite))->setPosition({-6, 0, 0});
  }
  EXPECT_NEAR(lengthOf(*old), 10 + 2 * OdaPI, 1e-12);
  drawing.db->startUndoRecord();
  {
    auto vertices = old->vertexIterator();
    vertices->entity(OdDb::kForWrite)->erase();
  }
  EXPECT_NEAR(lengthOf(*old), 2 * OdaPI, 1e-12);
  EXPECT_TRUE(drawing.db->undo());
  EXPECT_TRUE(drawing.db->undo());
  EXPECT_NEAR(lengthOf(*old), 4 + 2 * OdaPI, 1e-12);
  // Also with the undo log off.
  drawing.db->disableUndoRecording(true);
  const OdDb2dVertexPtr vertex = OdDb2dVertex::createObject();
  vertex->setPosition({8, 5, 0});
  old->appendVertex(vertex);
  EXPECT_NEAR(lengthOf(*old), 9 + 2 * OdaPI, 1e-12);
}

TEST(Curves, OldPolylinesAreResidentSequences) {
  SmallDrawing drawing;
  EXPECT_THROW(OdDb2dPolyline::createObject()->appendVertex(OdDb2dVertex::createObject()), OdError);
  const OdDb3dPolylinePtr source = spatial(drawing);
  EXPECT_EQ(source->objectId().stub()->children->last->dxfName(), "SEQEND");
  OdDbIdMapping map;
  drawing.db->deepCloneObjects({source->objectId()}, drawing.db->getModelSpaceId(), map);
  OdRxObjectPtrArray pieces;
  EXPECT_EQ(source->explode(pieces), eOk);
  ASSERT_EQ(pieces.size(), 2u);
  EXPECT_EQ(OdDbLinePtr(pieces[1])->endPoint(), OdGePoint3d(3, 4, 12));
  EXPECT_EQ(source->transformBy(OdGeMatrix3d::scaling(2)), eOk);
  EXPECT_NEAR(lengthOf(*source), 34, 1e-12);
  // Meshes, and their vertices, have the same record names; so have vertices without markers.
  const OdDbObjectId space = drawing.db->getModelSpaceId();
  const OdDbObjectId mesh = drawing.addRaw("POLYLINE", space, {{66, 1}, {70, 16}});
  const OdDbObjectId ofMesh = drawing.addRaw("VERTEX", mesh, {{10, 1.0}, {20, 0.0}, {70, 64}});
  const OdDbObjectId plain = drawing.addRaw("POLYLINE", space, {{66, 1}, {70, 1}});
  const OdDbObjectId ofPlain = drawing.addRaw("VERTEX", plain, {{10, 1.0}, {20, 0.0}});
  EXPECT_EQ(mesh.objectClass()->name(), L"OdDbProxyEntity");
  EXPECT_EQ(ofMesh.objectClass()->name(), L"OdDbProxyEntity");
  EXPECT_EQ(plain.objectClass(), OdDb2dPolyline::desc());
  EXPECT_TRUE(OdDb2dPolylinePtr(plain.safeOpenObject())->isClosed());
  EXPECT_EQ(OdDb2dVertexPtr(ofPlain.safeOpenObject())->position(), OdGePoint3d(1, 0, 0));
}

TEST(Curves, TransformsMoveEveryPoint) {
  SmallDrawing drawing;
  const OdGeMatrix3d turned = OdGeMatrix3d::translation({4, -1, 2}) *
                              OdGeMatrix3d::rotation(0.7, OdGeVector3d(1, 2, 3)) * OdGeMatrix3d::scaling(3);
  const OdGeMatrix3d mirrored = turned * OdGeMatrix3d::scaling(OdGeScale3d(-1, 1, 1));
  const OdGeMatrix3d slanted = OdGeMatrix3d().setCoordSystem({1, 2, 3}, {2, 0, 0}, {1, 0.5, 0}, {0, 1, 3});
  for (const OdGeMatrix3d& matrix : {turned, mirrored, slanted}) {
    const bool isSlanted = &matrix != &turned && !matrix.isUniScaledOrtho(1e-9);
    std::vector<OdDbCurvePtr> curves = {
        ellipse({0, 2, 0}, 0.5), ellipse({1, 2, 0}, 0.3, 1, 4),          parabola(),
        spatial(drawing),        endless<OdDbRay>({1, 2, 3}, {1, 1, 0}), line({0, 0, 0}, {1, 2, 3})};
    if (!isSlanted) curves.push_back(oldPolyline(drawing));
    for (const OdDbCurvePtr& curve : curves) {
      std::vector<OdGePoint3d> images;
      double start = 0;
      EXPECT_EQ(curve->getStartParam(start), eOk);
      for (const double step : {0.0, 0.3, 0.9})
        images.push_back(matrix * curve->geCurve().evalPoint(start + step));
      EXPECT_EQ(curve->transformBy(matrix), eOk);
      for (const OdGePoint3d& image : images) {
        OdGePoint3d nearest;
        EXPECT_EQ(curve->getClosestPointTo(image, nearest), eOk);
        EXPECT_TRUE(nearest.isEqualTo(image, 1e-9)) << curve->dxfName();
      }
      EXPECT_EQ(curve->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(1, 1, 0))), eNonInvertibleMatrix);
    }
  }
  EXPECT_EQ(oldPolyline(drawing)->transformBy(slanted), eCannotScaleNonUniformly);
}

TEST(Curves, EllipseAnglesAndSplineData) {
  const OdDbEllipsePtr part = ellipse({4, 0, 0}, 0.25, OdaPI / 4, 3 * OdaPI);
  double start = 0;
  EXPECT_EQ(part->getStartParam(start), eOk);
  EXPECT_NEAR(std::tan(start), 4, 1e-12); // y / x = 0.25 tan t
  EXPECT_NEAR(part->startAngle(), OdaPI / 4, 1e-12);
  EXPECT_THROW(part->set({}, {0, 0, 1}, {1, 0, 1}, 0.5), OdError);
  EXPECT_THROW(part->set({}, {0, 0, 1}, {1, 0, 0}, 2), OdError);

  const OdDbSplinePtr spline = parabola();
  EXPECT_THROW(spline->setNurbsData(2, false, false, false, {{0, 0, 0}}, {0, 1}, {}), OdError);
  EXPECT_EQ(spline->numControlPoints(), 3u);
  EXPECT_EQ(spline->getControlPointAt(2), OdGePoint3d(1, 1, 0));
  EXPECT_THROW(spline->getControlPointAt(3), OdError_InvalidIndex);
  spline->setFitData({{0, 0, 0}, {1, 1, 0}, {2, 0, 0}, {1, -1, 0}}, true, {}, {});
  EXPECT_EQ(spline->numControlPoints(), 0u);
  EXPECT_EQ(spline->numFitPoints(), 4u);
  EXPECT_TRUE(spline->isClosed() && spline->isPeriodic());
  OdGeVector3d way;
  EXPECT_EQ(spline->getFirstDeriv(OdGePoint3d(1, 1, 0), way), eOk);
  EXPECT_TRUE(way.isCodirectionalTo({1, 0, 0}, 1e-9)) << "by symmetry";
}

} // namespace
