// Records and variables as releases before R13 have them.
#include "DbCircle.h"
#include "DbDimStyleTable.h"
#include "DbLine.h"
#include "tables_drawing.h"

namespace {

using testing::Contains;
using testing::Not;

TEST(OldRecords, PointsShareAnElevation) {
  SmallDrawing drawing;
  const OdDbObjectId space = drawing.db->getModelSpaceId();
  const OdDbObjectId flat =
      drawing.addRaw("LINE", space, {{8, "0"}, {38, 4.5}, {10, 1.0}, {20, 2.0}, {11, 3.0}, {21, 4.0}});
  const OdDbLinePtr line = flat.safeOpenObject();
  EXPECT_EQ(line->startPoint(), OdGePoint3d(1, 2, 4.5));
  EXPECT_EQ(line->endPoint(), OdGePoint3d(3, 4, 4.5));
  EXPECT_EQ(line->normal(), OdGeVector3d::kZAxis);
  const OdDbObjectId own =
      drawing.addRaw("CIRCLE", space, {{8, "0"}, {38, 4.5}, {10, 1.0}, {20, 2.0}, {30, 9.0}, {40, 1.0}});
  EXPECT_EQ(OdDbCirclePtr(own.safeOpenObject())->center().z, 9);
}

TEST(OldRecords, RenamingABlockReachesTheArrowsOfDimensionStyles) {
  SmallDrawing drawing;
  const OdDbObjectId block = drawing.addBlock(L"DOT");
  const OdDbObjectId other = drawing.addBlock(L"TICK");
  const OdDbObjectId style =
      drawing.addRaw("DIMSTYLE", drawing.db->getDimStyleTableId(),
                     {{2, "S"}, {3, ""}, {4, ""}, {5, "dot"}, {6, "TICK"}, {7, "DOT"}}, false);
  drawing.block(block)->setName(L"BALL");
  EXPECT_THAT(writtenGroups(style), testing::IsSupersetOf({"5:BALL", "6:TICK", "7:BALL"}));
  EXPECT_EQ(drawing.block(other)->getName(), OdString(L"TICK"));
}

TEST(OldRecords, AxesOfR10KeepTheirNames) {
  SmallDrawing drawing;
  drawing.setHeader("$UCSXORI", {{10, 0.0}, {20, 1.0}, {30, 0.0}});
  drawing.setHeader("$UCSYORI", {{10, -1.0}, {20, 0.0}, {30, 0.0}});
  EXPECT_EQ(drawing.db->getUCSXDIR(), OdGeVector3d(0, 1, 0));
  drawing.db->setUCS(OdGePoint3d(), OdGeVector3d(1, 0, 0), OdGeVector3d(0, 1, 0));
  EXPECT_EQ(drawing.db->getUCSYDIR(), OdGeVector3d(0, 1, 0));
  EXPECT_EQ(drawing.store().headerVariable("$UCSXDIR"), nullptr);
}

TEST(OldRecords, EntitiesKnowTheSheetByItsOldName) {
  SmallDrawing drawing;
  const auto addTo = [](OdDbObjectId space) {
    const OdDbBlockTableRecordPtr record = space.safeOpenObject(OdDb::kForWrite);
    return record->appendOdDbEntity(OdDbLine::createObject());
  };
  drawing.block(drawing.db->getPaperSpaceId())->setName(L"$PAPER_SPACE");
  drawing.block(drawing.db->getModelSpaceId())->setName(L"$MODEL_SPACE");
  EXPECT_THAT(writtenGroups(addTo(drawing.db->getPaperSpaceId())), Contains("67:1"));
  EXPECT_THAT(writtenGroups(addTo(drawing.db->getModelSpaceId())), Not(Contains("67:1")));
}

TEST(OldRecords, ObjectsOfADrawingWithoutHandlesLeaveTheSeedAlone) {
  SmallDrawing drawing;
  drawing.setHeader("$HANDSEED", {{5, "0"}});
  drawing.store().hasHandles = false;
  drawing.addLayer(L"NEW");
  EXPECT_EQ(drawing.store().headerVariable("$HANDSEED")->groups->text(0), OdString(L"0"));
}

} // namespace
