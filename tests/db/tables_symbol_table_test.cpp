// Tables of named records: lookup, order, duplicates, erased records, renaming.
#include "DbDimStyleTable.h"
#include "DbRegAppTable.h"
#include "DbUCSTable.h"
#include "DbViewportTable.h"
#include "tables_drawing.h"
#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

OdDbSymbolTablePtr layers(const SmallDrawing& drawing) {
  return drawing.db->getLayerTableId().safeOpenObject(OdDb::kForWrite);
}

template <class Call>
OdResult resultOf(const Call& call) {
  try {
    call();
  } catch (const OdError& error) {
    return error.code();
  }
  return eOk;
}

} // namespace

TEST(SymbolTable, FindsNamesWithoutRegardToCase) {
  SmallDrawing drawing;
  const std::pair<const wchar_t*, const wchar_t*> names[] = {
      {L"Walls", L"wALLS"},
      {L"T\u00FCren", L"T\u00DCREN"},
      {L"\u0414\u0432\u0435\u0440\u044C", L"\u0434\u0412\u0415\u0420\u042C"},
      {L"\u03C3\u03AF\u03B3\u03BC\u03B1\u03C2", L"\u03A3\u038A\u0393\u039C\u0391\u03A3"}};
  for (const auto& [stored, asked] : names) {
    const OdDbObjectId id = drawing.addLayer(stored);
    EXPECT_EQ(layers(drawing)->getAt(asked), id) << OdString(stored).toUtf8();
    EXPECT_EQ(resultOf([&, a = asked] { drawing.addLayer(a); }), eDuplicateRecordName);
  }
  EXPECT_TRUE(layers(drawing)->getAt(L"Wall").isNull());
  EXPECT_TRUE(layers(drawing)->getAt(L"").isNull());
}

TEST(SymbolTable, RefusesWhatItCannotHold) {
  SmallDrawing drawing;
  EXPECT_EQ(resultOf([&] { layers(drawing)->add(OdDbLayerTableRecord::createObject()); }), eInvalidInput);
  const auto style = OdDbTextStyleTableRecord::createObject();
  style->setName(L"Notes");
  EXPECT_EQ(resultOf([&] { layers(drawing)->add(style); }), eNotThatKindOfClass);
  const OdDbSymbolTablePtr readOnly = drawing.db->getLayerTableId().safeOpenObject();
  readOnly->downgradeOpen();
  const auto layer = OdDbLayerTableRecord::createObject();
  layer->setName(L"Walls");
  EXPECT_EQ(resultOf([&] { readOnly->add(layer); }), eNotOpenForWrite);
}

TEST(SymbolTable, ViewportConfigurationsShareOneName) {
  SmallDrawing drawing;
  const OdDbObjectId table = drawing.db->getViewportTableId();
  const OdDbObjectId first = drawing.addRecord<OdDbViewportTableRecord>(table, L"*Active");
  drawing.addRecord<OdDbViewportTableRecord>(table, L"*Active");
  EXPECT_THAT(namesOf(table), ElementsAre(L"*Active", L"*Active"));
  const OdDbSymbolTablePtr open = table.safeOpenObject();
  EXPECT_EQ(open->getAt(L"*ACTIVE"), first);
}

TEST(SymbolTable, KeepsStoredOrderWhileItIsWalkedAndChanged) {
  SmallDrawing drawing;
  const OdDbObjectId b = drawing.addLayer(L"B");
  const OdDbObjectId a = drawing.addLayer(L"A");
  EXPECT_THAT(namesOf(drawing.db->getLayerTableId()), ElementsAre(L"0", L"B", L"A"));

  std::vector<std::wstring> met;
  for (auto record = layers(drawing)->newIterator(); !record->done(); record->step()) {
    met.push_back(record->getRecord(OdDb::kForRead, true)->getName().str());
    if (record->getRecordId() == b) {
      b.safeOpenObject(OdDb::kForWrite)->erase();
      a.safeOpenObject(OdDb::kForWrite)->erase();
      drawing.addLayer(L"C");
      EXPECT_EQ(record->getRecordId(), b);
    }
  }
  EXPECT_THAT(met, ElementsAre(L"0", L"B", L"C"));

  std::vector<std::wstring> backwards;
  auto record = layers(drawing)->newIterator(false, false);
  for (; !record->done(); record->step(false, false))
    backwards.push_back(record->getRecord(OdDb::kForRead, true)->getName().str());
  EXPECT_THAT(backwards, ElementsAre(L"C", L"A", L"B", L"0"));
}

TEST(SymbolTable, ErasedRecordsGiveTheirNameFree) {
  SmallDrawing drawing;
  const OdDbObjectId old = drawing.addLayer(L"Walls");
  drawing.db->startUndoRecord();
  old.safeOpenObject(OdDb::kForWrite)->erase();
  EXPECT_TRUE(layers(drawing)->getAt(L"walls").isNull());
  EXPECT_EQ(layers(drawing)->getAt(L"walls", true), old);
  const OdDbObjectId fresh = drawing.addLayer(L"WALLS");
  EXPECT_EQ(layers(drawing)->getAt(L"walls", true), fresh);
  drawing.db->undo();
  EXPECT_EQ(layers(drawing)->getAt(L"walls"), old);
  EXPECT_THAT(namesOf(drawing.db->getLayerTableId()), ElementsAre(L"0", L"Walls"));
  drawing.db->redo();
  EXPECT_EQ(layers(drawing)->getAt(L"walls"), fresh);
}

TEST(SymbolTable, RenamedRecordIsFoundUnderItsNewNameOnly) {
  SmallDrawing drawing;
  const OdDbObjectId id = drawing.addLayer(L"Walls");
  drawing.addLayer(L"Doors");
  const OdDbLayerTableRecordPtr layer = id.safeOpenObject(OdDb::kForWrite);
  EXPECT_EQ(resultOf([&] { layer->setName(L"DOORS"); }), eDuplicateRecordName);
  EXPECT_EQ(resultOf([&] { layer->setName(L""); }), eInvalidInput);
  drawing.db->startUndoRecord();
  layer->setName(L"WALLS"); // another spelling of its own name
  layer->setName(L"Outer walls");
  EXPECT_TRUE(layers(drawing)->getAt(L"walls").isNull());
  EXPECT_EQ(layers(drawing)->getAt(L"OUTER WALLS"), id);
  drawing.db->undo();
  EXPECT_EQ(layers(drawing)->getAt(L"walls"), id);
  EXPECT_TRUE(layers(drawing)->getAt(L"outer walls").isNull());
  EXPECT_EQ(layer->getName(), OdString(L"Walls"));
}

namespace {

struct RenameCase {
  const char* what;
  const char* table;
  const char* record;
  bool entity;
  std::vector<SmallDrawing::Group> groups;
  const char* wanted; ///< the group that must have followed, or must not have
};

void PrintTo(const RenameCase& c, std::ostream* out) { *out << c.what; }

class Rename : public testing::TestWithParam<RenameCase> {};

void addNamed(SmallDrawing& drawing, const std::string& table, const OdString& name) {
  OdDbDatabase& db = *drawing.db;
  if (table == "LAYER") drawing.addLayer(name);
  if (table == "LTYPE") drawing.addRecord<OdDbLinetypeTableRecord>(db.getLinetypeTableId(), name);
  if (table == "STYLE") drawing.addRecord<OdDbTextStyleTableRecord>(db.getTextStyleTableId(), name);
  if (table == "DIMSTYLE") drawing.addRecord<OdDbDimStyleTableRecord>(db.getDimStyleTableId(), name);
  if (table == "APPID") drawing.addRecord<OdDbRegAppTableRecord>(db.getRegAppTableId(), name);
  if (table == "BLOCK_RECORD") drawing.addBlock(name);
}

} // namespace

TEST_P(Rename, CarriesReferencesByNameAlong) {
  SmallDrawing drawing;
  const RenameCase& c = GetParam();
  addNamed(drawing, c.table, L"T\u00FCr");
  const OdDbObjectId owner =
      c.entity ? drawing.db->getModelSpaceId() : drawing.db->getNamedObjectsDictionaryId();
  const OdDbObjectId id = drawing.addRaw(c.record, owner, {}, c.entity);
  {
    const OdDbObjectPtr object = id.safeOpenObject(OdDb::kForWrite);
    OdDbGroupList& list = object->mutableGroups();
    for (const SmallDrawing::Group& group : c.groups)
      list.append(list.makeBytes(group.code, std::get<const char*>(group.value)));
  }
  const std::vector<std::string> before = writtenGroups(id);
  drawing.db->startUndoRecord();
  const OdDbSymbolTablePtr table = OdDbObjectId(drawing.store().table(c.table)).safeOpenObject();
  table->getAt(L"T\u00DCR", OdDb::kForWrite)->setName(L"Tor");
  EXPECT_THAT(writtenGroups(id), testing::Contains(c.wanted));
  drawing.db->undo();
  EXPECT_EQ(writtenGroups(id), before);
}

#define TUR "t\xC3\xBCR"
INSTANTIATE_TEST_SUITE_P(
    Uses, Rename,
    testing::Values(
        RenameCase{"layer of an entity", "LAYER", "LINE", true, {{100, "AcDbEntity"}, {8, TUR}}, "8:Tor"},
        RenameCase{"layer of an entity without sections", "LAYER", "LINE", true, {{8, TUR}}, "8:Tor"},
        RenameCase{"layer in extended data", "LAYER", "LINE", true, {{1001, "APP"}, {1003, TUR}}, "1003:Tor"},
        RenameCase{"text that merely looks so", "LAYER", "TEXT", true, {{8, "0"}, {1, TUR}}, "1:" TUR},
        RenameCase{"linetype of an entity", "LTYPE", "LINE", true, {{100, "AcDbEntity"}, {6, TUR}}, "6:Tor"},
        RenameCase{
            "view of a page", "LTYPE", "LAYOUT", false, {{100, "AcDbPlotSettings"}, {6, TUR}}, "6:" TUR},
        RenameCase{"style of a text", "STYLE", "TEXT", true, {{100, "AcDbText"}, {7, TUR}}, "7:Tor"},
        RenameCase{"style of an embedded text",
                   "STYLE",
                   "ATTRIB",
                   true,
                   {{101, "Embedded Object"}, {7, TUR}},
                   "7:Tor"},
        RenameCase{"plot style sheet of a page",
                   "STYLE",
                   "LAYOUT",
                   false,
                   {{100, "AcDbPlotSettings"}, {7, TUR}},
                   "7:" TUR},
        RenameCase{"inserted block",
                   "BLOCK_RECORD",
                   "INSERT",
                   true,
                   {{100, "AcDbBlockReference"}, {2, TUR}},
                   "2:Tor"},
        RenameCase{"block inserted as an array",
                   "BLOCK_RECORD",
                   "INSERT",
                   true,
                   {{100, "AcDbMInsertBlock"}, {2, TUR}},
                   "2:Tor"},
        RenameCase{
            "text in a table", "BLOCK_RECORD", "ACAD_TABLE", true, {{100, "AcDbTable"}, {2, TUR}}, "2:" TUR},
        RenameCase{"tag of an attribute",
                   "BLOCK_RECORD",
                   "ATTRIB",
                   true,
                   {{100, "AcDbAttribute"}, {2, TUR}},
                   "2:" TUR},
        RenameCase{"style of a dimension",
                   "DIMSTYLE",
                   "DIMENSION",
                   true,
                   {{100, "AcDbDimension"}, {3, TUR}},
                   "3:Tor"},
        RenameCase{"application", "APPID", "LINE", true, {{1001, TUR}, {1000, TUR}}, "1001:Tor"}),
    [](const auto& parameter) { return std::to_string(parameter.index); });

TEST(SymbolTable, RenamingFollowsInTheHeader) {
  SmallDrawing drawing;
  const OdDbObjectId id = drawing.addLayer(L"Walls");
  drawing.setHeader("$CLAYER", {{8, "WALLS"}});
  drawing.setHeader("$TEXTSTYLE", {{7, "Walls"}});
  const OdDbLayerTableRecordPtr layer = id.safeOpenObject(OdDb::kForWrite);
  layer->setName(L"Doors");
  EXPECT_EQ(drawing.db->getSysVar(L"$CLAYER")->getString(), OdString(L"Doors"));
  EXPECT_EQ(drawing.db->getSysVar(L"$TEXTSTYLE")->getString(), OdString(L"Walls"));
  EXPECT_EQ(drawing.db->getCLAYER(), id);
}

TEST(SymbolTable, RenamedBlockCarriesItsNameInAllItsRecords) {
  SmallDrawing drawing;
  const OdDbObjectId id = drawing.addBlock(L"Door");
  const auto ends = drawing.store().blockEnds.at(id.stub());
  EXPECT_THAT(writtenGroups(OdDbObjectId(ends.begin)), testing::IsSupersetOf({"2:Door", "3:Door", "70:0"}));
  drawing.db->startUndoRecord();
  drawing.block(id)->setName(L"Gate");
  EXPECT_THAT(writtenGroups(OdDbObjectId(ends.begin)), testing::IsSupersetOf({"2:Gate", "3:Gate"}));
  drawing.db->undo();
  EXPECT_THAT(writtenGroups(OdDbObjectId(ends.begin)), testing::IsSupersetOf({"2:Door", "3:Door"}));
}

TEST(SymbolTable, RenamingLeavesReadersReaders) {
  SmallDrawing drawing;
  const OdDbObjectId layer = drawing.addLayer(L"Walls");
  const OdDbObjectId id = drawing.addRaw("LINE", drawing.db->getModelSpaceId(), {{8, "Walls"}});
  const OdDbObjectPtr reader = id.safeOpenObject();
  const OdDbLayerTableRecordPtr record = layer.safeOpenObject(OdDb::kForWrite);
  record->setName(L"Doors");
  EXPECT_FALSE(reader->isWriteEnabled());
  EXPECT_THAT(writtenGroups(id), testing::Contains("8:Doors"));
}

TEST(LayerTableRecord, StateAndColourShareTheirGroups) {
  SmallDrawing drawing;
  const OdDbLayerTableRecordPtr layer = drawing.addLayer(L"Walls").safeOpenObject(OdDb::kForWrite);
  layer->setColorIndex(3);
  layer->setIsOff(true);
  EXPECT_TRUE(layer->isOff());
  EXPECT_EQ(layer->colorIndex(), 3);
  layer->setColorIndex(5);
  EXPECT_TRUE(layer->isOff());
  EXPECT_THAT(writtenGroups(layer->objectId()), testing::Contains("62:-5"));
  layer->setColor(OdCmColor::fromRgb(1, 2, 3));
  EXPECT_EQ(layer->color(), OdCmColor::fromRgb(1, 2, 3));
  EXPECT_EQ(resultOf([&] { layer->setColor(OdCmColor()); }), eInvalidInput);
  layer->setIsLocked(true);
  layer->setIsFrozen(true);
  layer->setIsLocked(false);
  EXPECT_TRUE(layer->isFrozen());
  EXPECT_FALSE(layer->isLocked());
  EXPECT_EQ(layer->linetypeObjectId(),
            drawing.store().findRecord(drawing.store().table("LTYPE"), L"CONTINUOUS"));
}

TEST(TextStyleTableRecord, SlantIsRadiansHereAndDegreesInFiles) {
  SmallDrawing drawing;
  const OdDbTextStyleTableRecordPtr style =
      drawing.addRecord<OdDbTextStyleTableRecord>(drawing.db->getTextStyleTableId(), L"Notes")
          .safeOpenObject(OdDb::kForWrite);
  style->setObliquingAngle(OdaPI / 12);
  style->setIsUpsideDown(true);
  style->setIsVertical(true);
  EXPECT_THAT(writtenGroups(style->objectId()), testing::IsSupersetOf({"50:15.000000", "71:4", "70:4"}));
  EXPECT_FALSE(style->isBackwards());
}

TEST(DimStyleTableRecord, StoresItsHandleUnderACodeOfItsOwn) {
  SmallDrawing drawing;
  const OdDbObjectId id =
      drawing.addRecord<OdDbDimStyleTableRecord>(drawing.db->getDimStyleTableId(), L"ISO-25");
  const std::string handle = id.getHandle().ascii().toUtf8();
  EXPECT_THAT(writtenGroups(id), testing::Contains("105:" + handle));
  EXPECT_THAT(writtenGroups(id), testing::Not(testing::Contains("5:" + handle)));
}

TEST(UcsTableRecord, NewOneIsTheWorldUntilItIsSet) {
  SmallDrawing drawing;
  const OdDbUCSTableRecordPtr ucs =
      drawing.addRecord<OdDbUCSTableRecord>(drawing.db->getUCSTableId(), L"Side")
          .safeOpenObject(OdDb::kForWrite);
  EXPECT_EQ(ucs->xAxis(), OdGeVector3d::kXAxis);
  ucs->setYAxis(OdGeVector3d::kZAxis);
  EXPECT_EQ(ucs->yAxis(), OdGeVector3d::kZAxis);
  EXPECT_THAT(writtenGroups(ucs->objectId()), testing::IsSupersetOf({"11:1.000000", "32:1.000000"}));
}
