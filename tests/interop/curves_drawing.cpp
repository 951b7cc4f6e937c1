// Makes a drawing with every kind of curve, wipeouts and points, and prints what the library measures on it:
// a line for each curve, of its handle, its length, and the points at tenths of it.
//   curves_drawing OUT.dxf
#include "Db2dPolyline.h"
#include "Db3dPolyline.h"
#include "DbArc.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbEllipse.h"
#include "DbLine.h"
#include "DbPoint.h"
#include "DbPolyline.h"
#include "DbSpline.h"
#include "DbWipeout.h"
#include "DbWipeoutVariables.h"
#include "DbXline.h"
#include <cmath>
#include <cstdio>

namespace {

class Drawing {
public:
  OdDbDatabasePtr db = OdDbDatabase::createBlank();
  OdDbBlockTableRecordPtr space = db->getModelSpaceId().safeOpenObject(OdDb::kForWrite);

  template <class Entity>
  OdSmartPtr<Entity> add() {
    OdSmartPtr<Entity> made = Entity::createObject();
    made->setDatabaseDefaults(db);
    space->appendOdDbEntity(made);
    return made;
  }
};

void addRound(Drawing& drawing) {
  const auto line = drawing.add<OdDbLine>();
  line->setStartPoint({1, 2, 3});
  line->setEndPoint({-4, 7, 1});
  const auto circle = drawing.add<OdDbCircle>();
  circle->setNormal(OdGeVector3d(1, 1, 1));
  circle->setCenter({3, 3, 3});
  circle->setRadius(2.5);
  const auto arc = drawing.add<OdDbArc>();
  arc->setRadius(4);
  arc->setStartAngle(5);
  arc->setEndAngle(1);
  drawing.add<OdDbEllipse>()->set({1, 1, 1}, OdGeVector3d::kZAxis, {6, 2, 0}, 0.3);
  drawing.add<OdDbEllipse>()->set({1, 1, 1}, {0, 1, 0}, {0, 0, 6}, 0.05, 0.5, 4);
}

void addPolylines(Drawing& drawing) {
  const auto light = drawing.add<OdDbPolyline>();
  for (int i = 0; i < 6; ++i)
    light->addVertexAt(light->numVerts(), {std::cos(i) * 9, std::sin(i) * 9}, i * 0.3 - 0.7);
  light->setClosed(true);
  light->setElevation(2);
  light->setNormal({0, -1, 0});
  const auto old = drawing.add<OdDb2dPolyline>();
  old->setElevation(1);
  const auto spatial = drawing.add<OdDb3dPolyline>();
  spatial->setClosed(true);
  for (int i = 0; i < 5; ++i) {
    const auto flat = OdDb2dVertex::createObject();
    flat->setPosition(OdGePoint3d(i, i * i, 1));
    flat->setBulge(i % 2 ? -0.5 : 0.25);
    old->appendVertex(flat);
    const auto vertex = OdDb3dPolylineVertex::createObject();
    vertex->setPosition(OdGePoint3d(i, i * i, 3 - i));
    spatial->appendVertex(vertex);
  }
}

void addSplines(Drawing& drawing) {
  OdGePoint3dArray points;
  OdGeDoubleArray weights;
  OdGeDoubleArray knots;
  for (int i = 0; i < 9; ++i) points.append(OdGePoint3d(i, 3 * std::sin(i * 1.3), std::cos(i)));
  for (int i = 0; i < 9; ++i) weights.append(1 + 0.4 * (i % 3));
  for (int i = 0; i < 13; ++i) knots.append(i < 4 ? 0 : i > 8 ? 6 : i - 3);
  drawing.add<OdDbSpline>()->setNurbsData(3, false, false, false, points, knots, {});
  drawing.add<OdDbSpline>()->setNurbsData(3, true, false, false, points, knots, weights);
  drawing.add<OdDbSpline>()->setFitData(points, false, {0, 1, 0}, {1, 0, 0});
}

void addOthers(Drawing& drawing) {
  const auto ray = drawing.add<OdDbRay>();
  ray->setBasePoint({1, 2, 3});
  ray->setUnitDir({3, 4, 0});
  const auto xline = drawing.add<OdDbXline>();
  xline->setBasePoint({4, 5, 6});
  xline->setUnitDir({0, 0, -2});
  drawing.add<OdDbWipeout>()->setBoundary({{1, 1, 0}, {5, 1, 0}, {5, 3, 0}, {2, 4, 0}, {1, 1, 0}});
  OdDbWipeoutVariables::openWipeoutVariables(drawing.db, OdDb::kForWrite, true)->setShowFrame(false);
  drawing.add<OdDbPoint>()->setPosition({7, 8, 9});
  drawing.db->setPDMODE(34);
  drawing.db->setPDSIZE(0.5);
}

void print(const OdDbCurve& curve) {
  double end = 0;
  double length = 0;
  if (curve.getEndParam(end) != eOk || curve.getDistAtParam(end, length) != eOk) return;
  std::printf("%s %.17g", curve.getDbHandle().ascii().toUtf8().c_str(), length);
  for (int i = 0; i <= 10; ++i) {
    OdGePoint3d point;
    curve.getPointAtDist(length * i / 10, point);
    std::printf(" %.17g %.17g %.17g", point.x, point.y, point.z);
  }
  std::printf("\n");
}

} // namespace

int main(int count, char** arguments) {
  if (count != 2) return 2;
  try {
    Drawing drawing;
    addRound(drawing);
    addPolylines(drawing);
    addSplines(drawing);
    addOthers(drawing);
    for (auto each = drawing.space->newIterator(); !each->done(); each->step())
      if (const auto curve = OdDbCurve::cast(each->entity()); !curve.isNull()) print(*curve);
    drawing.db->writeFile(OdString::fromUtf8(arguments[1]));
  } catch (const OdError& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
