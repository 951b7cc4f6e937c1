#include "DbArc.h"
#include "DbLine.h"
#include "DbPolyline.h"
#include "tables_drawing.h"
#include <gmock/gmock.h>

namespace {

OdDbPolylinePtr square(double bulge) {
  OdDbPolylinePtr polyline = OdDbPolyline::createObject();
  for (const auto& [x, y] : {std::pair(0, 0), {2, 0}, {2, 2}, {0, 2}})
    polyline->addVertexAt(polyline->numVerts(), OdGePoint2d(x, y), x == 2 && y == 0 ? bulge : 0);
  polyline->setClosed(true);
  return polyline;
}

/// All vertices as text: x,y,bulge,start width,end width,identifier.
std::string vertices(const OdDbPolyline& polyline) {
  std::string all;
  for (unsigned int i = 0; i < polyline.numVerts(); ++i) {
    OdGePoint2d p;
    double from = 0;
    double to = 0;
    polyline.getPointAt(i, p);
    polyline.getWidthsAt(i, from, to);
    char line[100];
    std::snprintf(line, sizeof line, "%g,%g,%g,%g,%g,%d ", p.x, p.y, polyline.getBulgeAt(i), from, to,
                  polyline.getVertexIdentifierAt(i));
    all += line;
  }
  return all;
}

TEST(Polyline, FileOrderOfVertexGroupsDoesNotMatter) {
  SmallDrawing drawing;
  const OdDbPolylinePtr polyline = drawing
                                       .addRaw("LWPOLYLINE", drawing.db->getModelSpaceId(),
                                               {{100, "AcDbEntity"},
                                                {8, "0"},
                                                {100, "AcDbPolyline"},
                                                {90, 3},
                                                {70, 1},
                                                {43, 0.5},
                                                {38, 4.0},
                                                {10, 1.0},
                                                {20, 2.0},
                                                {91, 7},
                                                {40, 0.1},
                                                {41, 0.2},
                                                {42, 1.0},
                                                {10, 3.0},
                                                {20, 4.0},
                                                {42, 0.5},
                                                {91, 8},
                                                {10, 5.0},
                                                {20, 6.0},
                                                {210, 0.0},
                                                {220, 0.0},
                                                {230, -1.0},
                                                {1001, "APP"},
                                                {1010, 9.0}})
                                       .safeOpenObject(OdDb::kForWrite);
  EXPECT_EQ(vertices(*polyline), "1,2,1,0.1,0.2,7 3,4,0.5,0.5,0.5,8 5,6,0,0.5,0.5,0 ");
  OdGePoint3d world;
  polyline->getPointAt(0, world);
  EXPECT_EQ(world, OdGePoint3d(-1, 2, -4));
  // Other changes move the groups; vertices are still found.
  polyline->setColorIndex(3);
  polyline->setThickness(2);
  polyline->addVertexAt(1, OdGePoint2d(0, 0), 0.25, 0, 0, 9);
  polyline->removeVertexAt(0);
  polyline->setBulgeAt(2, -1);
  EXPECT_EQ(vertices(*polyline), "0,0,0.25,0,0,9 3,4,0.5,0.5,0.5,8 5,6,-1,0.5,0.5,0 ");
  EXPECT_EQ(polyline->normal(), OdGeVector3d(0, 0, -1));
  EXPECT_THAT(writtenGroups(polyline->objectId()), testing::Contains("90:3"));
}

TEST(Polyline, CacheFollowsUndo) {
  SmallDrawing drawing;
  OdDbPolylinePtr polyline = square(0);
  drawing.block(drawing.db->getModelSpaceId())->appendOdDbEntity(polyline);
  drawing.db->startUndoRecord();
  polyline->removeVertexAt(0);
  polyline->setPointAt(0, OdGePoint2d(9, 9));
  EXPECT_TRUE(drawing.db->undo());
  EXPECT_EQ(vertices(*polyline), "0,0,0,0,0,0 2,0,0,0,0,0 2,2,0,0,0,0 0,2,0,0,0,0 ");
}

TEST(Polyline, WidthsSharedAndOwn) {
  const OdDbPolylinePtr polyline = square(0);
  polyline->setConstantWidth(0.5);
  EXPECT_TRUE(polyline->hasWidth());
  polyline->setWidthsAt(1, 1, 2);
  EXPECT_EQ(vertices(*polyline), "0,0,0,0.5,0.5,0 2,0,0,1,2,0 2,2,0,0.5,0.5,0 0,2,0,0.5,0.5,0 ");
  EXPECT_EQ(polyline->getConstantWidth(), 0);
  polyline->setConstantWidth(3);
  EXPECT_EQ(vertices(*polyline), "0,0,0,3,3,0 2,0,0,3,3,0 2,2,0,3,3,0 0,2,0,3,3,0 ");
}

TEST(Polyline, TransformsMirrorBulgesAndRefuseToStretchThem) {
  const OdGeMatrix3d stretch = OdGeMatrix3d::scaling(OdGeScale3d(3, 1, 1));
  EXPECT_EQ(square(0.5)->transformBy(stretch), eCannotScaleNonUniformly);
  const OdDbPolylinePtr straight = square(0);
  EXPECT_EQ(straight->transformBy(stretch), eOk);
  EXPECT_EQ(vertices(*straight), "0,0,0,0,0,0 6,0,0,0,0,0 6,2,0,0,0,0 0,2,0,0,0,0 ");
  const OdDbPolylinePtr mirrored = square(0.5);
  EXPECT_EQ(mirrored->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(-1, 1, 1))), eOk);
  EXPECT_EQ(vertices(*mirrored), "0,0,0,0,0,0 -2,0,-0.5,0,0,0 -2,2,0,0,0,0 0,2,0,0,0,0 ");
}

TEST(Polyline, PiecesMeetAndArcsBulgeToTheRightSide) {
  for (const double bulge : {0.5, -0.5}) {
    OdArray<OdRxObjectPtr> pieces;
    ASSERT_EQ(square(bulge)->explode(pieces), eOk);
    ASSERT_EQ(pieces.size(), 4u);
    const OdDbLinePtr first = pieces[0];
    const OdDbArcPtr arc = pieces[1];
    EXPECT_EQ(first->endPoint(), bulge > 0 ? arc->startPoint() : arc->endPoint());
    EXPECT_EQ(OdDbLinePtr(pieces[2])->startPoint(), bulge > 0 ? arc->endPoint() : arc->startPoint());
    OdGeExtents3d box;
    arc->getGeomExtents(box);
    // The arc rises half its chord times the bulge: 0.5 outwards (x = 2.5) or inwards (x = 1.5).
    EXPECT_NEAR(bulge > 0 ? box.maxPoint().x : box.minPoint().x, 2 + bulge, 1e-12);
  }
}

TEST(Polyline, ManyVerticesStayCheapToReach) {
  // Anything that walked over the vertices for each access would take minutes here.
  constexpr unsigned int kCount = 100000;
  const OdDbPolylinePtr polyline = OdDbPolyline::createObject();
  for (unsigned int i = 0; i < kCount; ++i) polyline->addVertexAt(i, OdGePoint2d(i, 1));
  for (unsigned int i = 0; i < kCount; ++i) polyline->setBulgeAt(i, 0.5);
  for (unsigned int i = 0; i < kCount; ++i) polyline->setWidthsAt(i, i, i);
  OdGePoint2d last;
  polyline->getPointAt(kCount - 1, last);
  EXPECT_EQ(last, OdGePoint2d(kCount - 1, 1));
  EXPECT_EQ(polyline->groups().size(), static_cast<int>(kCount * 5 + 7));
  EXPECT_EQ(polyline->transformBy(OdGeMatrix3d::translation(OdGeVector3d(1, 1, 0))), eOk);
  OdArray<OdRxObjectPtr> pieces;
  EXPECT_EQ(polyline->explode(pieces), eOk);
  EXPECT_EQ(pieces.size(), kCount - 1);
  EXPECT_THROW(polyline->getPointAt(kCount, last), OdError_InvalidIndex);
}

} // namespace
