// What was read comes out again: byte for byte when nobody touched it, group for group when somebody did.
#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbLine.h"
#include "DbWipeout.h"
#include "DxfReader.h"
#include "DxfWriter.h"
#include "dxf_text.h"
#include "support/drawings.h"
#include <filesystem>
#include <gmock/gmock.h>

namespace {

using test::drawingFromText;
using test::savedBytes;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;

class RoundTrip : public testing::TestWithParam<Layout> {};

INSTANTIATE_TEST_SUITE_P(Layouts, RoundTrip,
                         testing::Values(Layout{"AC1015", "\r\n", true}, Layout{"AC1018", "\n", true},
                                         Layout{"AC1021", "\n", false}, Layout{"AC1024", "\r\n", false},
                                         Layout{"AC1027", "\n", true}, Layout{"AC1032", "\r\n", true}));

void touchEverything(OdDbDatabase& database) {
  odDbVisitAll(database.store(), [](OdDbStub* stub) {
    OdDbObjectId(stub).safeOpenObject(OdDb::kForWrite, true)->mutableGroups();
  });
}

TEST_P(RoundTrip, UntouchedDrawingKeepsEveryByte) {
  const std::string text = smallDrawing(GetParam());
  EXPECT_EQ(savedBytes(*drawingFromText(text)), text);
}

TEST_P(RoundTrip, TouchedObjectsKeepEveryGroup) {
  const OdDbDatabasePtr before = drawingFromText(smallDrawing(GetParam()));
  const std::vector<std::string> expected = describe(*before);
  touchEverything(*before);
  const std::string saved = savedBytes(*before);
  const OdDbDatabasePtr after = drawingFromText(saved);
  EXPECT_THAT(describe(*after), ElementsAreArray(expected));
  EXPECT_EQ(after->originalFileVersion(), before->originalFileVersion());
  // Reals in another form, blanks in integers: what a second saving could still change.
  EXPECT_EQ(savedBytes(*after), saved);
}

TEST(RoundTripTest, RecordNamesKeepTheirBytesWhateverTheyMean) {
  for (const std::string name : {"BL\xC4\xFFOCK", "A^B", "A\\U+0041", "9Z"}) {
    const std::string text = entities("0 " + name + "|5 2A|330 1F|8 0");
    const OdDbDatabasePtr database = drawingFromText(text);
    OdDbObjectId(database->store().find(0x2A)).openObject(OdDb::kForWrite)->mutableGroups();
    EXPECT_EQ(savedBytes(*database), text);
  }
}

/// Minimal programs tell no release, and not each of their records has a marker.
TEST(RoundTripTest, BlockRecordsOfAFileWithoutReleaseStayTheOwners) {
  const std::string text = dxf(
      "0 SECTION|2 TABLES|0 TABLE|2 LAYER|5 2|0 LAYER|5 10|2 0|0 ENDTAB|0 TABLE|2 BLOCK_RECORD|5 1|"
      "0 BLOCK_RECORD|5 30|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 A|0 ENDTAB|0 ENDSEC|"
      "0 SECTION|2 BLOCKS|0 BLOCK|5 31|330 30|8 0|0 ENDBLK|5 32|330 30|8 0|0 ENDSEC|0 EOF");
  const OdDbDatabasePtr database = drawingFromText(text);
  OdDbObjectId(database->store().find(0x31)).openObject(OdDb::kForWrite)->mutableGroups();
  const std::vector<std::string> again = describe(*drawingFromText(savedBytes(*database)));
  EXPECT_THAT(again, testing::Contains("BLOCK: 5=31 330=30 8='0'"));
}

TEST(RoundTripTest, LinesBetweenObjectsKeepTheirLook) {
  std::string text = smallDrawing();
  const auto replace = [&text](const std::string& from, const std::string& to) {
    ASSERT_NE(text.find(from), std::string::npos) << from;
    text.replace(text.find(from), from.size(), to);
  };
  replace(dxf("0 SECTION|2 TABLES"), "0\nSECTION\n999\na note\n  2\r\nTABLES\n");
  replace(dxf("0 ENDTAB"), "0\nENDTAB \r\n");
  replace(dxf("0 ENDSEC|0 SECTION|2 BLOCKS"), " 0\r\nENDSEC\n0\r\nSECTION\r\n2\r\nBLOCKS\r\n");
  replace(dxf("0 EOF"), "0\nEOF \n");
  EXPECT_EQ(savedBytes(*drawingFromText(text)), text);
}

TEST_P(RoundTrip, BinaryFormHoldsTheSameAsText) {
  for (const bool shortCodes : {false, true}) {
    const std::string ascii = smallDrawing(GetParam());
    const std::string binary = toBinary(ascii, shortCodes);
    EXPECT_EQ(savedBytes(*drawingFromText(binary)), binary);
    // The same change of both, and both written group by group.
    std::string saved[2];
    for (const auto& [index, bytes] : {std::pair(0, ascii), std::pair(1, binary)}) {
      const OdDbDatabasePtr database = drawingFromText(bytes);
      touchEverything(*database);
      database->setTILEMODE(false);
      saved[index] = savedBytes(*database);
    }
    EXPECT_EQ(saved[1], toBinary(saved[0], shortCodes));
  }
}

TEST(RoundTripTest, UndoneChangesLeaveTheBytesAlone) {
  const std::string text = smallDrawing();
  const OdDbDatabasePtr database = drawingFromText(text);
  database->startUndoRecord();
  touchEverything(*database);
  database->setTILEMODE(false);
  EXPECT_NE(savedBytes(*database), text);
  ASSERT_TRUE(database->undo());
  EXPECT_EQ(savedBytes(*database), text);
}

TEST(RoundTripTest, ContainersAreWhatTheRecordsTell) {
  const OdDbDatabasePtr database = drawingFromText(smallDrawing());
  const OdDbStore& store = database->store();
  const auto handles = [](const OdDbStubList* list) {
    std::vector<OdUInt64> all;
    for (OdDbStub* stub = list->first; stub; stub = stub->next) all.push_back(stub->handle);
    return all;
  };
  EXPECT_THAT(handles(store.find(0x1F)->children), ElementsAre(0x41, 0x42, 0x46, 0x49));
  EXPECT_THAT(handles(store.find(0x1B)->children), ElementsAre(0x40, 0x45));
  EXPECT_THAT(handles(store.find(0x30)->children), ElementsAre(0x33));
  EXPECT_THAT(handles(store.find(0x42)->children), ElementsAre(0xD9B071D01A0CB618u, 0x44));
  EXPECT_THAT(handles(store.find(0x46)->children), ElementsAre(0x47, 0x48));
  EXPECT_THAT(handles(&store.objects), ElementsAre(0xC, 0x50, 0x51));
  EXPECT_EQ(store.find(0x50)->owner, store.find(0xC));
  EXPECT_EQ(store.blockEnds.at(store.find(0x30)).end, store.find(0x32));
  EXPECT_EQ(database->getModelSpaceId(), OdDbObjectId(store.find(0x1F)));
  EXPECT_EQ(database->getNamedObjectsDictionaryId(), OdDbObjectId(store.find(0xC)));
}

TEST(RoundTripTest, ChangedTextIsWrittenInTheDrawingsEncoding) {
  const Layout layout{"AC1015", "\n", true};
  const OdDbDatabasePtr database = drawingFromText(smallDrawing(layout));
  const OdDbObjectPtr object = OdDbObjectId(database->store().find(0x45)).safeOpenObject(OdDb::kForWrite);
  OdDbGroupList& groups = object->mutableGroups();
  for (OdDbGroup& group : groups.items)
    if (group.code == 1) group = groups.makeText(1, groups.text(group) + L" \u00E4 \u677F ^ \n \\U+0041");
  EXPECT_THAT(savedBytes(*database),
              HasSubstr(dxf("1 %%c caf\xE9 \xC3\xA9 \xE4 \\U+677F ^  ^J \\U+005CU+0041", layout)));
}

TEST(RoundTripTest, OnlyChangedHeaderVariablesAreWrittenAnew) {
  const std::string text = smallDrawing();
  const OdDbDatabasePtr database = drawingFromText(text);
  database->setSysVar(L"$INSBASE", OdResBuf::newRb(10, OdGePoint3d(1, 2, 3)));
  std::string expected = text;
  const std::string old = dxf("10 0.500|20 -0|30 1E-5");
  expected.replace(expected.find(old), old.size(), dxf("10 1.0|20 2.0|30 3.0"));
  EXPECT_EQ(savedBytes(*database), expected);
}

TEST(RoundTripTest, EntitiesOfABlockWithoutDefinitionStayWhereTheyStood) {
  std::string text = entities("0 LINE|5 2A|330 30|8 0|0 LINE|5 2B|330 1F|8 0|0 LINE|5 2C|330 30|8 0");
  const std::size_t at = text.find("ENDTAB", text.find("*Paper_Space"));
  ASSERT_NE(at, std::string::npos);
  text.insert(at - 5,
              dxf("0 BLOCK_RECORD|5 30|330 1|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 A"));
  EXPECT_EQ(savedBytes(*drawingFromText(text)), text);
}

TEST(RoundTripTest, MissingClassesAreDeclaredOnceAmongSeveralSections) {
  std::string text = entities("0 LINE|5 2A|330 1F|8 0");
  const std::string classes = dxf("0 SECTION|2 CLASSES|0 ENDSEC");
  text.insert(text.find(dxf("0 SECTION|2 TABLES")), classes + classes);
  const OdDbDatabasePtr database = drawingFromText(text);
  const OdDbWipeoutPtr mask = OdDbWipeout::createObject();
  ASSERT_EQ(mask->setBoundary({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}), eOk);
  const OdDbBlockTableRecordPtr space = database->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
  space->appendOdDbEntity(mask);
  const std::string file = testing::TempDir() + "classes.dxf";
  ASSERT_NO_THROW(odDbWriteFile(*database, OdString::fromUtf8(file)));
  std::filesystem::remove(file);
  const std::string saved = savedBytes(*database);
  const std::size_t first = saved.find(dxf("0 CLASS|1 WIPEOUT"));
  ASSERT_NE(first, std::string::npos);
  EXPECT_EQ(saved.find(dxf("0 CLASS|1 WIPEOUT"), first + 1), std::string::npos);
}

TEST(RoundTripTest, ErasedObjectsAreLeftOut) {
  const OdDbDatabasePtr database = drawingFromText(smallDrawing());
  for (const OdUInt64 handle : {0x41u, 0x30u, 0x46u, 0x50u})
    OdDbObjectId(database->store().find(handle)).safeOpenObject(OdDb::kForWrite)->erase();
  const std::vector<std::string> before = describe(*database);
  const OdDbDatabasePtr after = drawingFromText(savedBytes(*database));
  for (const OdUInt64 gone : {0x41u, 0x30u, 0x31u, 0x32u, 0x33u, 0x46u, 0x47u, 0x48u, 0x50u, 0x51u})
    EXPECT_EQ(after->store().find(gone), nullptr) << std::hex << gone;
  for (const OdUInt64 kept : {0x40u, 0x42u, 0x44u, 0x45u, 0x49u, 0xCu})
    EXPECT_NE(after->store().find(kept), nullptr) << std::hex << kept;
}

TEST(RoundTripTest, ErasingTheLastAttributeTakesFlagAndEndMarkAlong) {
  const OdDbDatabasePtr database = drawingFromText(smallDrawing());
  OdDbObjectId(database->store().find(0xD9B071D01A0CB618)).safeOpenObject(OdDb::kForWrite)->erase();
  const OdDbDatabasePtr after = drawingFromText(savedBytes(*database));
  EXPECT_EQ(after->store().find(0x44), nullptr);
  EXPECT_THAT(describe(after->store().find(0x42)), testing::Not(HasSubstr(" 66=")));
}

TEST(RoundTripTest, NewAttributesAreToldAndClosed) {
  const OdDbDatabasePtr database = drawingFromText(
      entities("0 INSERT|5 42|330 1F|100 AcDbEntity|8 0|100 AcDbBlockReference|2 Door|10 5.0|20 5.0|30 0.0"));
  const OdDbAttributePtr attribute = OdDbAttribute::createObject();
  attribute->setTag(L"TAG");
  const OdDbBlockReferencePtr reference =
      OdDbObjectId(database->store().find(0x42)).safeOpenObject(OdDb::kForWrite);
  reference->appendAttribute(attribute);
  const OdDbDatabasePtr after = drawingFromText(savedBytes(*database));
  OdDbStub* saved = after->store().find(0x42);
  EXPECT_THAT(describe(saved), HasSubstr(" 66=1 2='Door'"));
  ASSERT_TRUE(saved->children);
  EXPECT_EQ(saved->children->first->dxfName(), "ATTRIB");
  EXPECT_EQ(saved->children->last->dxfName(), "SEQEND");
  // The seed of the new file is beyond the handles that were given.
  EXPECT_EQ(after->store().nextHandle, saved->children->last->handle + 1);
}

TEST(RoundTripTest, EntityOrderOfMixedSpacesSurvivesChanges) {
  const OdDbDatabasePtr database = drawingFromText(smallDrawing());
  OdDbObjectId(database->store().find(0x42)).safeOpenObject(OdDb::kForWrite)->mutableGroups();
  const std::string saved = savedBytes(*database);
  std::vector<std::size_t> places;
  for (const char* handle : {"40", "41", "42", "45", "46", "49"})
    places.push_back(saved.find(dxf(std::string("5 ") + handle + "|")));
  EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
}

TEST(RoundTripTest, NewSectionsStandBehindThoseThatComeBefore) {
  const std::string header = dxf("0 SECTION|2 HEADER|9 $ACADVER|1 AC1032|0 ENDSEC");
  const std::string novel = dxf("0 SECTION|2 NOVEL|0 THING|1 kept|0 ENDSEC");
  const std::string tables =
      dxf("0 SECTION|2 TABLES|0 TABLE|2 BLOCK_RECORD|5 1|70 1|0 BLOCK_RECORD|5 1F|2 *Model_Space|0 ENDTAB|0 "
          "ENDSEC");
  const std::string objects = dxf("0 SECTION|2 OBJECTS|0 DICTIONARY|5 C|100 AcDbDictionary|0 ENDSEC");
  const std::string classes = dxf("0 SECTION|2 CLASSES|0 ENDSEC");
  const std::string comment = dxf("999 a remark");
  const struct {
    std::string sections;
    std::vector<std::string> after;
  } cases[] = {
      {header + novel + tables + objects, {"HEADER", "NOVEL", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"}},
      {header + tables + novel + objects, {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "NOVEL", "OBJECTS"}},
      {header + novel + objects, {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "NOVEL", "OBJECTS"}},
      {comment + novel + tables, {"", "HEADER", "NOVEL", "TABLES", "BLOCKS", "ENTITIES"}},
      {header + tables + objects + classes, {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS", "CLASSES"}},
  };
  for (const auto& c : cases) {
    const OdDbDatabasePtr database = drawingFromText(c.sections + dxf("0 EOF"));
    const OdDbBlockTableRecordPtr space = database->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
    space->appendOdDbEntity(OdDbLine::createObject());
    const OdDbDatabasePtr after = drawingFromText(savedBytes(*database));
    std::vector<std::string> names;
    for (const OdDbSection& section : after->store().sections) names.push_back(section.name);
    EXPECT_EQ(names, c.after);
  }
}

TEST(BlankDrawingTest, HasTheStandardRecordsAndStaysAsItIs) {
  const OdDbDatabasePtr blank = OdDbDatabase::createBlank();
  EXPECT_TRUE(blank->getFilename().isEmpty());
  EXPECT_EQ(blank->originalFileVersion(), OdDb::vAC32);
  for (const OdDbObjectId id :
       {blank->getLayerTableId(), blank->getLinetypeTableId(), blank->getTextStyleTableId(),
        blank->getDimStyleTableId(), blank->getUCSTableId(), blank->getViewTableId(),
        blank->getViewportTableId(), blank->getRegAppTableId(), blank->getModelSpaceId(),
        blank->getPaperSpaceId(), blank->getCLAYER(), blank->getCELTYPE(), blank->getTEXTSTYLE(),
        blank->getLayoutDictionaryId(false), blank->getPlotStyleNameDictionaryId(false),
        blank->getNamedObjectsDictionaryId()})
    EXPECT_FALSE(id.isNull());
  const std::string bytes = savedBytes(*blank);
  const OdDbDatabasePtr again = drawingFromText(bytes);
  EXPECT_EQ(savedBytes(*again), bytes);
  touchEverything(*again);
  EXPECT_THAT(describe(*drawingFromText(savedBytes(*again))), ElementsAreArray(describe(*blank)));
}

} // namespace
