#include "DbIdMapping.h"
#include "DbWipeout.h"
#include "DbWipeoutVariables.h"
#include "support/drawings.h"
#include "tables_drawing.h"
#include <cmath>
#include <limits>

namespace {

const OdGePoint3dArray kTriangle = {{2, 1, 0}, {6, 1, 0}, {2, 4, 0}, {2, 1, 0}};

OdDbWipeoutPtr wipeout(const OdGePoint3dArray& points) {
  OdDbWipeoutPtr made = OdDbWipeout::createObject();
  EXPECT_EQ(made->setBoundary(points), eOk);
  return made;
}
OdGePoint3dArray boundaryOf(const OdDbWipeout& wipeout) {
  OdGePoint3dArray points;
  wipeout.boundary(points);
  return points;
}

TEST(Wipeout, StoresItsPolygonInPixelsOfItsRectangle) {
  SmallDrawing drawing;
  const OdDbWipeoutPtr mask = wipeout(kTriangle);
  drawing.block(drawing.db->getModelSpaceId())->appendOdDbEntity(mask);
  // The rectangle is the box around the polygon; its only pixel has its middle at 0,0, and y counts
  // downwards.
  EXPECT_THAT(writtenGroups(mask->objectId()),
              ::testing::IsSupersetOf({"100:AcDbWipeout", "10:2.000000", "20:1.000000", "11:4.000000",
                                       "22:3.000000", "70:7", "280:1", "71:2", "91:4", "14:-0.500000",
                                       "24:0.500000", "14:0.500000", "24:-0.500000"}));
  EXPECT_EQ(boundaryOf(*mask), kTriangle);
  // Open or closed, it is the same polygon; setting it again leaves nothing behind.
  EXPECT_EQ(mask->setBoundary({{0, 0, 7}, {1, 0, 7}, {1, 1, 7}}), eOk);
  EXPECT_EQ(boundaryOf(*mask), (OdGePoint3dArray{{0, 0, 7}, {1, 0, 7}, {1, 1, 7}, {0, 0, 7}}));
}

TEST(Wipeout, PolygonsInAnyPlaneAndAnyDirection) {
  const OdGeMatrix3d tilt =
      OdGeMatrix3d::translation({100, -50, 20}) * OdGeMatrix3d::rotation(1.1, OdGeVector3d(1, -2, 0.5));
  for (const bool clockwise : {false, true}) {
    OdGePoint3dArray points;
    for (int i = 0; i < 7; ++i)
      points.append(tilt * OdGePoint3d(std::cos(i), (clockwise ? -3 : 3) * std::sin(i), 0));
    points.append(OdGePoint3d(points.first()));
    const OdDbWipeoutPtr mask = wipeout(points);
    const OdGePoint3dArray back = boundaryOf(*mask);
    ASSERT_EQ(back.size(), points.size());
    for (unsigned int i = 0; i < points.size(); ++i) EXPECT_TRUE(back[i].isEqualTo(points[i], 1e-12)) << i;
    OdGePoint3d origin;
    OdGeVector3d u;
    OdGeVector3d v;
    mask->getOrientation(origin, u, v);
    EXPECT_TRUE(u.isPerpendicularTo(v, 1e-12));
  }
}

TEST(Wipeout, RefusesPolygonsWithoutArea) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const OdDbWipeoutPtr mask = wipeout(kTriangle);
  EXPECT_EQ(mask->setBoundary({}), eDegenerateGeometry);
  EXPECT_EQ(mask->setBoundary({{1, 1, 0}, {1, 1, 0}}), eDegenerateGeometry);
  EXPECT_EQ(mask->setBoundary({{0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {5, 5, 0}}), eDegenerateGeometry);
  EXPECT_EQ(mask->setBoundary({{0, 0, 0}, {1, 0, 0}, {nan, 2, 0}}), eInvalidInput);
  EXPECT_EQ(boundaryOf(*mask), kTriangle);
}

TEST(Wipeout, OptionsTransformsAndExtents) {
  const OdDbWipeoutPtr mask = wipeout(kTriangle);
  for (const auto option :
       {OdDbWipeout::kShow, OdDbWipeout::kShowUnAligned, OdDbWipeout::kClip, OdDbWipeout::kTransparent}) {
    EXPECT_EQ(mask->isSetDisplayOpt(option), option != OdDbWipeout::kTransparent);
    mask->setDisplayOpt(option, false);
    EXPECT_FALSE(mask->isSetDisplayOpt(option));
  }
  // Without the clipping, the rectangle is left.
  EXPECT_EQ(boundaryOf(*mask), (OdGePoint3dArray{{2, 4, 0}, {6, 4, 0}, {6, 1, 0}, {2, 1, 0}, {2, 4, 0}}));
  mask->setDisplayOpt(OdDbWipeout::kClip, true);
  EXPECT_EQ(mask->transformBy(OdGeMatrix3d::rotation(OdaPI2, OdGeVector3d::kZAxis)), eOk);
  OdGeExtents3d box;
  EXPECT_EQ(mask->getGeomExtents(box), eOk);
  EXPECT_EQ(box.minPoint(), OdGePoint3d(-4, 2, 0));
  EXPECT_EQ(box.maxPoint(), OdGePoint3d(-1, 6, 0));
  EXPECT_EQ(mask->transformBy(OdGeMatrix3d::scaling(OdGeScale3d(0, 1, 1))), eNonInvertibleMatrix);
}

TEST(Wipeout, VariablesAreMadeWhenAskedFor) {
  for (const bool hasDictionaries : {true, false}) {
    SmallDrawing drawing;
    if (!hasDictionaries) drawing.root()->erase(); // as in old releases
    EXPECT_TRUE(OdDbWipeoutVariables::openWipeoutVariables(drawing.db).isNull());
    drawing.db->startUndoRecord();
    {
      const auto made = OdDbWipeoutVariables::openWipeoutVariables(drawing.db, OdDb::kForWrite, true);
      EXPECT_TRUE(made->showFrame() && made->plotsFrame());
      made->setShowFrame(false);
    }
    const auto again = OdDbWipeoutVariables::openWipeoutVariables(drawing.db);
    EXPECT_FALSE(again->showFrame());
    EXPECT_THROW(again->setShowFrame(true), OdError);
    EXPECT_EQ(again->ownerId(), drawing.db->getNamedObjectsDictionaryId());
    EXPECT_TRUE(drawing.db->undo());
    EXPECT_TRUE(OdDbWipeoutVariables::openWipeoutVariables(drawing.db).isNull());
    EXPECT_NE(drawing.db->getNamedObjectsDictionaryId().isNull(), hasDictionaries);
  }
}

std::string savedLines(OdDbDatabase& database) {
  std::string bytes = test::savedBytes(database);
  std::erase(bytes, '\r');
  return bytes;
}

TEST(Wipeout, FilesDeclareItsClassOnce) {
  const OdDbDatabasePtr blank = OdDbDatabase::createBlank();
  const std::string before = savedLines(*blank);
  blank->startUndoRecord();
  {
    const OdDbBlockTableRecordPtr space = blank->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
    space->appendOdDbEntity(wipeout(kTriangle));
  }
  const std::string once = savedLines(*blank);
  EXPECT_TRUE(once.find("\nWIPEOUT\n  2\nAcDbWipeout\n") != std::string::npos);
  EXPECT_EQ(once.find("WIPEOUTVARIABLES"), std::string::npos);
  // Read again, changed again: the declaration is there.
  const OdDbDatabasePtr read = test::drawingFromText(once);
  {
    const OdDbBlockTableRecordPtr space = read->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
    space->appendOdDbEntity(wipeout(kTriangle));
    OdDbWipeoutVariables::openWipeoutVariables(read, OdDb::kForWrite, true);
  }
  const std::string twice = savedLines(*read);
  EXPECT_EQ(twice.find("\nAcDbWipeout\n  3"), twice.rfind("\nAcDbWipeout\n  3"));
  EXPECT_NE(twice.find("\nWIPEOUTVARIABLES\n  2\nAcDbWipeoutVariables\n"), std::string::npos);
  EXPECT_TRUE(blank->undo());
  EXPECT_TRUE(savedLines(*blank) == before);
}

TEST(Points, DisplayModeIsOfTheDrawing) {
  SmallDrawing drawing;
  EXPECT_EQ(drawing.db->getPDMODE(), 0);
  EXPECT_EQ(drawing.db->getPDSIZE(), 0);
  drawing.db->setPDMODE(35);
  drawing.db->setPDSIZE(-2.5);
  EXPECT_EQ(drawing.db->getPDMODE(), 35);
  EXPECT_EQ(drawing.db->getPDSIZE(), -2.5);
  for (const int mode : {-1, 5, 128, 37}) EXPECT_THROW(drawing.db->setPDMODE(mode), OdError) << mode;
}

} // namespace
