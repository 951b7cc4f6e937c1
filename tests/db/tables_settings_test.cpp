// Spaces, layouts, viewports, header variables, coordinate systems.
#include "tables_drawing.h"
#include <gmock/gmock.h>

namespace {

/// A second sheet named "Details" whose contents are not the current paper space.
OdDbObjectId addSheet(SmallDrawing& drawing) {
  const OdDbObjectId record = drawing.addBlock(L"*Paper_Space0");
  const OdDbLayoutPtr layout = OdDbLayout::createObject();
  layout->setLayoutName(L"D\u00E9tails");
  layout->setBlockTableRecordId(record);
  const OdDbDictionaryPtr layouts = drawing.db->getLayoutDictionaryId().safeOpenObject(OdDb::kForWrite);
  drawing.block(record)->setLayoutId(layouts->setAt(L"D\u00E9tails", layout));
  return record;
}

OdDbObjectId addViewport(SmallDrawing& drawing, OdDbObjectId owner, int number) {
  return drawing.addRaw("VIEWPORT", owner, {{100, "AcDbEntity"}, {100, "AcDbViewport"}, {69, number}});
}

std::wstring nameOf(OdDbObjectId record) {
  const OdDbBlockTableRecordPtr open = record.safeOpenObject();
  return open->getName().str();
}

} // namespace

TEST(Layouts, CurrentSheetIsTheOneCalledPaperSpace) {
  SmallDrawing drawing;
  OdDbDatabase& db = *drawing.db;
  const OdDbObjectId first = db.getPaperSpaceId();
  const OdDbObjectId second = addSheet(drawing);
  EXPECT_EQ(db.currentLayoutName(), OdString(L"Model"));
  EXPECT_EQ(db.getActiveLayoutBTRId(), db.getModelSpaceId());

  db.startUndoRecord();
  db.setCurrentLayout(L"d\u00C9TAILS");
  EXPECT_EQ(db.currentLayoutName(), OdString(L"D\u00E9tails"));
  EXPECT_FALSE(db.getTILEMODE());
  EXPECT_EQ(db.getActiveLayoutBTRId(), second);
  EXPECT_EQ(nameOf(second), L"*Paper_Space");
  EXPECT_EQ(nameOf(first), L"*Paper_Space0");
  EXPECT_THAT(writtenGroups(OdDbObjectId(drawing.store().blockEnds.at(first.stub()).begin)),
              testing::Contains("2:*Paper_Space0"));

  db.setCurrentLayout(L"model");
  EXPECT_EQ(db.getActiveLayoutBTRId(), db.getModelSpaceId());
  EXPECT_EQ(db.getPaperSpaceId(), second) << "the sheet that was current stays the first one";
  EXPECT_THROW(db.setCurrentLayout(L"nowhere"), OdError);
  db.undo();
  EXPECT_EQ(db.getPaperSpaceId(), first);
  EXPECT_EQ(db.currentLayoutName(), OdString(L"Model"));
}

TEST(Layouts, AreTakenFromTheSpacesWhereADrawingHasNone) {
  SmallDrawing drawing;
  OdDbDatabase& db = *drawing.db;
  drawing.root()->erase();
  drawing.block(db.getPaperSpaceId())->setName(L"$PAPER_SPACE");
  db.setCurrentLayout(L"LAYOUT1");
  EXPECT_EQ(nameOf(db.getActiveLayoutBTRId()), L"$PAPER_SPACE");
  EXPECT_EQ(db.currentLayoutName(), OdString(L"Layout1"));
  db.setCurrentLayout(L"Model");
  EXPECT_TRUE(db.getTILEMODE());
  EXPECT_TRUE(db.getLayoutDictionaryId(false).isNull());
  EXPECT_FALSE(db.getLayoutDictionaryId().isNull());
}

TEST(Layouts, AreFoundThroughEitherEndOfTheirLink) {
  SmallDrawing drawing;
  drawing.block(drawing.db->getPaperSpaceId())->setLayoutId(OdDbObjectId());
  drawing.db->setTILEMODE(false);
  EXPECT_EQ(drawing.db->currentLayoutName(), OdString(L"Layout1"));
}

TEST(Layouts, RenamingKeepsTheDictionaryInStep) {
  SmallDrawing drawing;
  const OdDbDictionaryPtr layouts = drawing.db->getLayoutDictionaryId().safeOpenObject();
  const OdDbLayoutPtr layout = layouts->getAt(L"Layout1", OdDb::kForWrite);
  EXPECT_THROW(layout->setLayoutName(L"MODEL"), OdError);
  layout->setLayoutName(L"Plan");
  EXPECT_EQ(layouts->getAt(L"plan"), layout->objectId());
  EXPECT_FALSE(layouts->has(L"Layout1"));
  EXPECT_FALSE(layout->modelType());
}

TEST(Layouts, TheCurrentPageIsNamedInTheDictionaryOfVariables) {
  SmallDrawing drawing;
  const OdDbDictionaryPtr variables = OdDbDictionary::createObject();
  drawing.root()->setAt(L"AcDbVariableDictionary", variables);
  const OdDbObjectId page = drawing.addRaw("DICTIONARYVAR", variables->objectId(),
                                           {{100, "DictionaryVariables"}, {280, 0}, {1, "Model"}}, false);
  variables->setAt(L"CTAB", page.safeOpenObject(OdDb::kForWrite));
  drawing.db->setCurrentLayout(L"layout1");
  EXPECT_THAT(writtenGroups(page), testing::Contains("1:Layout1"));
}

TEST(Viewports, SheetIsActiveUntilOneIsEntered) {
  SmallDrawing drawing;
  OdDbDatabase& db = *drawing.db;
  const OdDbObjectId entered = addViewport(drawing, db.getPaperSpaceId(), 2);
  const OdDbObjectId sheet = addViewport(drawing, db.getPaperSpaceId(), 1);
  const OdDbObjectId elsewhere = addViewport(drawing, addSheet(drawing), 2);
  EXPECT_TRUE(db.activeViewportId().isNull());
  db.setCurrentLayout(L"Layout1");
  EXPECT_EQ(db.activeViewportId(), sheet);
  db.setActiveViewportId(entered);
  EXPECT_EQ(db.activeViewportId(), entered);
  EXPECT_THROW(db.setActiveViewportId(elsewhere), OdError);
  entered.safeOpenObject(OdDb::kForWrite)->erase();
  EXPECT_EQ(db.activeViewportId(), sheet);
  db.startUndoRecord();
  db.setCurrentLayout(L"D\u00E9tails");
  db.setActiveViewportId(elsewhere);
  db.undo();
  EXPECT_EQ(db.activeViewportId(), sheet) << "back on the first sheet, where that viewport is not";
  db.setCurrentLayout(L"D\u00E9tails");
  EXPECT_EQ(db.activeViewportId(), elsewhere) << "without a viewport number 1 the first one is the sheet";
}

TEST(HeaderVariables, DefaultsOfNewEntitiesAreRecordsOfTheirTables) {
  SmallDrawing drawing;
  OdDbDatabase& db = *drawing.db;
  EXPECT_EQ(nameOf(db.getActiveLayoutBTRId()), L"*Model_Space");
  const OdDbObjectId walls = drawing.addLayer(L"Walls");
  const OdDbObjectId zero = db.getCLAYER();
  db.startUndoRecord();
  db.setCLAYER(walls);
  EXPECT_EQ(db.getCLAYER(), walls);
  EXPECT_THROW(db.setCLAYER(db.getTEXTSTYLE()), OdError);
  db.setCECOLOR(OdCmColor::fromIndex(3));
  EXPECT_EQ(db.getCECOLOR().colorIndex(), 3);
  EXPECT_THROW(db.setCECOLOR(OdCmColor::fromRgb(1, 2, 3)), OdError);
  db.undo();
  EXPECT_EQ(db.getCLAYER(), zero);
  EXPECT_TRUE(db.getCECOLOR().isByLayer());
  drawing.setHeader("$ANGBASE", {{50, 90.0}});
  EXPECT_DOUBLE_EQ(db.getANGBASE(), OdaPI2);
}

TEST(HeaderVariables, KeepTheirFormAndAreUndone) {
  SmallDrawing drawing;
  OdDbDatabase& db = *drawing.db;
  drawing.setHeader("$LIMMAX", {{10, 420.0}, {20, 297.0}});
  drawing.setHeader("$PDMODE", {{70, 0}});
  db.startUndoRecord();
  db.setSysVar(L"$LIMMAX", OdResBuf::newRb(10, OdGePoint3d(1, 2, 3)));
  EXPECT_EQ(db.getSysVar(L"$LIMMAX")->getPoint3d(), OdGePoint3d(1, 2, 0));
  EXPECT_EQ(drawing.store().headerVariable("$LIMMAX")->groups->size(), 2);
  db.setSysVar(L"$PDMODE", nullptr);
  EXPECT_TRUE(db.getSysVar(L"$PDMODE").isNull());
  db.setSysVar(L"$USERR1", OdResBuf::newRb(40, 1.5));
  EXPECT_THROW(db.setSysVar(L"$USERR1", OdResBuf::newRb(70, OdInt64{1})), OdError);
  EXPECT_THROW(db.setSysVar(L"USERR1", OdResBuf::newRb(40, 1.5)), OdError);
  db.undo();
  EXPECT_EQ(db.getSysVar(L"$LIMMAX")->getPoint3d(), OdGePoint3d(420, 297, 0));
  EXPECT_EQ(db.getSysVar(L"$PDMODE")->getInt16(), 0);
  EXPECT_TRUE(db.getSysVar(L"$USERR1").isNull());
  db.redo();
  EXPECT_DOUBLE_EQ(db.getSysVar(L"$USERR1")->getDouble(), 1.5);
}

TEST(CoordinateSystems, EachSpaceHasItsOwn) {
  SmallDrawing drawing;
  OdDbDatabase& db = *drawing.db;
  drawing.setHeader("$UCSNAME", {{2, "Side"}});
  const OdDbObjectId sheet = addViewport(drawing, db.getPaperSpaceId(), 1);
  const OdDbObjectId window = addViewport(drawing, db.getPaperSpaceId(), 2);
  EXPECT_EQ(db.ucsToWorld(), OdGeMatrix3d());
  db.setUCS(OdGePoint3d(10, 0, 0), OdGeVector3d(0, 5, 0), OdGeVector3d(-2, 0, 0));
  EXPECT_EQ(db.getUCSXDIR(), OdGeVector3d::kYAxis);
  EXPECT_EQ(db.ucsToWorld() * OdGePoint3d(1, 2, 3), OdGePoint3d(8, 1, 3));
  EXPECT_TRUE(db.getSysVar(L"$UCSNAME")->getString().isEmpty());
  EXPECT_THROW(db.setUCS(OdGePoint3d(), OdGeVector3d::kXAxis, OdGeVector3d(1, 1, 0)), OdError);
  EXPECT_THROW(db.setUCS(OdGePoint3d(), OdGeVector3d(), OdGeVector3d::kYAxis), OdError);

  db.setTILEMODE(false);
  EXPECT_EQ(db.getUCSORG(), OdGePoint3d()) << "paper space";
  db.setActiveViewportId(window);
  EXPECT_EQ(db.getUCSORG(), OdGePoint3d(10, 0, 0)) << "model space, through a viewport";
  db.setActiveViewportId(sheet);
  db.setUCS(OdGePoint3d(5, 5, 0), OdGeVector3d::kXAxis, OdGeVector3d::kYAxis);
  EXPECT_EQ(db.getSysVar(L"$PUCSORG")->getPoint3d(), OdGePoint3d(5, 5, 0));
  db.setTILEMODE(true);
  EXPECT_EQ(db.getUCSORG(), OdGePoint3d(10, 0, 0));
}
