// Drawings of releases before 2000: without subclass markers and owners, some without handles.
#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbLine.h"
#include "DbMText.h"
#include "DbPolyline.h"
#include "DbRegAppTable.h"
#include "DrawingAudit.h"
#include "DxfWriter.h"
#include "ReleaseUpgrade.h"
#include "dxf_text.h"
#include "support/drawings.h"
#include <gmock/gmock.h>
#include <regex>

namespace {

using test::drawingFromText;
using test::savedBytes;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

// Without handles, "5 ..." goes; DIMSTYLE names an arrow block there, whose name could be one.
constexpr const char* kOldForm = R"(0 SECTION|2 HEADER
9 $ACADVER|1 RELEASE
9 $HANDLING|70      1
9 $HANDSEED|5 70
9 $DIMFIT|70      4
0 ENDSEC
0 SECTION|2 TABLES
0 TABLE|2 LTYPE|70      1
0 LTYPE|2 DASHED|70      0|3|72     65|73      2|40 0.75|49 0.5|49 -0.25
0 ENDTAB
0 TABLE|2 LAYER|70      2
0 LAYER|2 0|70      0|62      7|6 CONTINUOUS
0 LAYER|2 WALLS|70      0|62      1|6 DASHED
0 ENDTAB
0 TABLE|2 DIMSTYLE|70      1
0 DIMSTYLE|2 STANDARD|70      0|3|4|5 DAB|6|7
0 ENDTAB
0 ENDSEC
0 SECTION|2 BLOCKS
0 BLOCK|8 0|2 $MODEL_SPACE|70      0|10 0.0|20 0.0|3 $MODEL_SPACE|1
0 ENDBLK|5 21|8 0
0 BLOCK|67      1|8 0|2 $PAPER_SPACE|70      0|10 0.0|20 0.0|3 $PAPER_SPACE|1
0 ENDBLK|5 22|8 0
0 BLOCK|8 0|2 DAB|70      0|10 0.0|20 0.0|3 DAB|1
0 ENDBLK|5 23|8 0
0 BLOCK|8 0|2 DOOR|70      2|10 0.0|20 0.0|3 DOOR|1
0 ATTDEF|5 24|8 0|10 1.0|20 0.0|30 0.0|40 2.5|1 def|3 Prompt|2 TAG|70      0|72      1|11 1.0|21 0.0|31 0.0|74      1
0 ENDBLK|5 25|8 0
0 ENDSEC
0 SECTION|2 ENTITIES
0 INSERT|8 0|5 42|66      1|2 DOOR|10 5.0|20 5.0|30 0.0
0 ATTRIB|5 43|8 0|10 5.0|20 5.0|30 0.0|40 2.5|1 v|2 TAG|70      0
0 SEQEND|5 44|8 0
0 TEXT|5 45|67      1|8 0|10 1.0|20 1.0|30 0.0|40 2.5|1 sheet|73      2
0 POLYLINE|5 46|8 WALLS|66      1|10 0.0|20 0.0|30 0.0|70      8
0 VERTEX|5 47|8 WALLS|10 0.0|20 0.0|30 1.0|70     32
0 SEQEND|5 48|8 WALLS
0 ARC|5 49|8 0|6 BYLAYER|62      3|39 1.5|10 0.0|20 0.0|30 0.0|40 1.0|50 0.0|51 90.0
0 3DLINE|5 4A|8 0|38 4.0|10 0.0|20 0.0|11 1.0|21 1.0
0 DIMENSION|5 4B|8 0|2 DAB|10 0.0|20 0.0|11 1.0|21 1.0|70      1|13 0.0|23 0.0|14 1.0|24 1.0
0 ENDSEC
0 EOF)";

std::string oldDrawing(const std::string& release = "AC1009", bool handles = true) {
  std::string groups = std::regex_replace(std::string(kOldForm), std::regex("RELEASE"), release);
  if (!handles) groups = std::regex_replace(groups, std::regex("5 [0-9]\\w\\|"), "");
  if (!handles)
    groups = std::regex_replace(groups, std::regex("\\$HANDLING\\|70      1"), "$$HANDLING|70      0");
  return dxf(groups);
}

/// R13 has markers and objects, but no owners; the model space of this one is stored under another name.
std::string drawingOfR13() {
  return dxf("0 SECTION|2 HEADER|9 $ACADVER|1 AC1012|9 $HANDSEED|5 70|0 ENDSEC|0 SECTION|2 TABLES\n"
             "0 TABLE|2 BLOCK_RECORD|5 1|100 AcDbSymbolTable|70      1\n"
             "0 BLOCK_RECORD|5 1F|100 AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *U\n"
             "0 ENDTAB|0 ENDSEC|0 SECTION|2 BLOCKS\n"
             "0 BLOCK|5 20|330 1F|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 *U|70      1|10 0.0|20 0.0|3 *U|1\n"
             "0 ENDBLK|5 21|330 1F|100 AcDbEntity|8 0|100 AcDbBlockEnd\n"
             "0 ENDSEC|0 SECTION|2 ENTITIES\n"
             "0 TEXT|5 45|330 1F|100 AcDbEntity|8 0|100 AcDbText|10 1.0|20 1.0|1 x|100 AcDbText\n"
             "0 TEXT|5 46|330 1F|8 0|10 1.0|20 1.0|40 2.5|1 no marker\n"
             "0 ENDSEC|0 SECTION|2 OBJECTS\n"
             "0 DICTIONARY|5 C|100 AcDbDictionary|3 ACAD_GROUP|350 D\n"
             "0 DICTIONARY|5 D|102 {ACAD_REACTORS|330 C|102 }|100 AcDbDictionary\n"
             "0 ENDSEC|0 EOF");
}

struct Release {
  const char* what;
  std::string text;
};

std::vector<Release> releases() {
  return {{"R9", oldDrawing("AC1004", false)},
          {"R10", oldDrawing("AC1006", false)},
          {"R12", oldDrawing()},
          {"R12 without handles", oldDrawing("AC1009", false)},
          {"release 2.6", oldDrawing("AC1003", false)},
          {"R13", drawingOfR13()}};
}

template <class Object>
OdSmartPtr<Object> first(OdDbDatabase& database, const char* kind) {
  OdDbStub* found = nullptr;
  odDbVisitAll(database.store(), [&](OdDbStub* stub) {
    if (!found && stub->dxfName() == kind) found = stub;
  });
  return OdDbObjectId(found).safeOpenObject(OdDb::kForWrite);
}

TEST(OldReleaseTest, UntouchedDrawingsKeepEveryByteAndShowTheirSpaces) {
  for (const Release& release : releases()) {
    SCOPED_TRACE(release.what);
    const OdDbDatabasePtr database = drawingFromText(release.text);
    const auto reference = database->getModelSpaceId().safeOpenObject();
    EXPECT_FALSE(OdDbBlockTableRecord::cast(reference)->newIterator()->done());
    database->setCurrentLayout(L"Model");
    EXPECT_EQ(database->getActiveLayoutBTRId(), database->getModelSpaceId());
    EXPECT_EQ(database->currentLayoutName(), OdString(L"Model"));
    EXPECT_TRUE(database->getLayoutDictionaryId(false).isNull());
    EXPECT_EQ(savedBytes(*database), release.text);
  }
}

TEST(OldReleaseTest, PropertiesAreReadWithoutMarkers) {
  const OdDbDatabasePtr database = drawingFromText(oldDrawing());
  const auto insert = first<OdDbBlockReference>(*database, "INSERT");
  EXPECT_EQ(insert->getDbHandle().ascii(), OdString(L"42"));
  const OdDbBlockTableRecordPtr block = insert->blockTableRecord().safeOpenObject();
  EXPECT_EQ(block->getName(), OdString(L"DOOR"));
  EXPECT_TRUE(block->hasAttributeDefinitions());
  const OdDbAttributePtr attribute = insert->attributeIterator()->entity();
  EXPECT_EQ(attribute->tag(), OdString(L"TAG"));
  EXPECT_EQ(attribute->textString(), OdString(L"v"));
  const OdDbEntityPtr arc = first<OdDbEntity>(*database, "ARC");
  EXPECT_EQ(arc->linetype(), OdString(L"BYLAYER"));
  arc->setLinetype(L"ByBlock");
  EXPECT_EQ(arc->linetype(), OdString(L"ByBlock")) << "there is no record of that name";
  EXPECT_EQ(first<OdDbEntity>(*database, "TEXT")->ownerId(), database->getPaperSpaceId());
}

OdDbObjectId addTo(OdDbDatabase& database, OdDbObjectId space, OdDbEntity* entity) {
  const OdDbBlockTableRecordPtr record = space.safeOpenObject(OdDb::kForWrite);
  entity->setDatabaseDefaults(&database);
  return record->appendOdDbEntity(entity);
}

TEST(OldReleaseTest, WhatChangedIsWrittenInTheReleasesForm) {
  for (const bool handles : {true, false}) {
    SCOPED_TRACE(handles);
    const std::string text = oldDrawing("AC1009", handles);
    const OdDbDatabasePtr database = drawingFromText(text);
    database->startUndoRecord();
    const auto insert = first<OdDbBlockReference>(*database, "INSERT");
    const OdDbAttributePtr attribute = insert->attributeIterator()->entity(OdDb::kForWrite);
    attribute->setTextString(L"new value");
    const OdDbAttributePtr added = OdDbAttribute::createObject();
    added->setTag(L"SECOND");
    insert->appendAttribute(added);
    first<OdDbEntity>(*database, "ARC")->erase();
    addTo(*database, database->getPaperSpaceId(), OdDbLine::createObject());
    const OdDbLayerTablePtr layers = database->getLayerTableId().safeOpenObject(OdDb::kForWrite);
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
    layer->setName(L"NEW");
    layers->add(layer);
    const OdDbBlockTablePtr blocks = database->getBlockTableId().safeOpenObject(OdDb::kForWrite);
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName(L"TABLE");
    blocks->add(block);

    const std::string saved = savedBytes(*database);
    for (const char* absent : {"100", "330", "102", "370", "280"})
      EXPECT_THAT(saved, Not(HasSubstr(dxf(std::string(absent)).substr(0, 5)))) << absent;
    EXPECT_THAT(saved, Not(HasSubstr("BLOCK_RECORD")));
    EXPECT_THAT(saved, Not(HasSubstr("OBJECTS")));
    EXPECT_EQ(saved.find(dxf("5 4")) == std::string::npos, true);
    EXPECT_THAT(saved, HasSubstr(dxf("0 LAYER|2 NEW|70      0|62      7|6 Continuous|0 ENDTAB")));
    EXPECT_EQ(std::regex_search(saved, std::regex("LINE\r\n  5\r\n")), handles);
    const OdDbDatabasePtr after = drawingFromText(saved);
    const auto members = first<OdDbBlockReference>(*after, "INSERT")->attributeIterator();
    EXPECT_EQ(OdDbAttributePtr(members->entity())->textString(), OdString(L"new value"));
    members->step();
    EXPECT_EQ(OdDbAttributePtr(members->entity())->tag(), OdString(L"SECOND"));
    EXPECT_EQ(first<OdDbEntity>(*after, "LINE")->ownerId(), after->getPaperSpaceId());
    EXPECT_THAT(describe(*after), Not(Contains(HasSubstr("ARC:"))));
    ASSERT_TRUE(database->undo());
    EXPECT_EQ(savedBytes(*database), text);
  }
}

TEST(OldReleaseTest, ChangedRecordsHaveHandlesWhereTheFileHasThem) {
  // Old programs write handles of entities only, newer ones those of table records as well.
  const struct {
    std::string text;
    bool hasEntityHandles;
    bool hasTableHandles;
  } cases[] = {
      {std::regex_replace(std::regex_replace(oldDrawing(), std::regex("LAYER\r\n  2\r\nWALLS"),
                                             "LAYER\r\n  5\r\n12\r\n  2\r\nWALLS"),
                          std::regex("DIMSTYLE\r\n  2\r\nSTAND"), "DIMSTYLE\r\n105\r\n13\r\n  2\r\nSTAND"),
       true, true},
      {oldDrawing(), true, false},
      {oldDrawing("AC1009", false), false, false},
  };
  for (const auto& c : cases) {
    const OdDbDatabasePtr database = drawingFromText(c.text);
    odDbVisitAll(database->store(), [](OdDbStub* stub) {
      if (stub->raw) OdDbObjectId(stub).safeOpenObject(OdDb::kForWrite)->mutableGroups();
    });
    const std::string saved = savedBytes(*database);
    EXPECT_EQ(describe(*drawingFromText(saved)), describe(*drawingFromText(c.text)));
    EXPECT_EQ(saved.find(dxf("5 47")) != std::string::npos, c.hasEntityHandles);
    const OdDbLayerTablePtr layers = database->getLayerTableId().safeOpenObject(OdDb::kForWrite);
    const OdDbLayerTableRecordPtr added = OdDbLayerTableRecord::createObject();
    added->setName(L"NEW");
    layers->add(added);
    EXPECT_EQ(std::regex_search(savedBytes(*database), std::regex("LAYER\r\n  5\r\n\\w+\r\n  2\r\nNEW")),
              c.hasTableHandles);
  }
}

TEST(OldReleaseTest, ObjectsOfLaterReleasesKeepTheirForm) {
  const std::string objects = dxf("0 SECTION|2 OBJECTS|0 DICTIONARY|5 A|330 0|100 AcDbDictionary|3 X|350 B|"
                                  "0 DICTIONARY|5 B|330 A|100 AcDbDictionary|281      1|0 ENDSEC|0 EOF");
  const std::string text = dxf("0 SECTION|2 HEADER|9 $ACADVER|1 AC1009|0 ENDSEC") + objects;
  const OdDbDatabasePtr database = test::drawingFromText(text);
  OdDbObjectId(database->store().find(0xA)).openObject(OdDb::kForWrite)->mutableGroups();
  EXPECT_THAT(test::savedBytes(*database), testing::EndsWith(objects));
}

TEST(OldReleaseTest, MarkersStayWhereAGroupWouldBecomeTheOwnerWithoutThem) {
  const OdDbDatabasePtr database = drawingFromText(
      dxf("0 SECTION|2 ENTITIES|0 ARC|5 49|8 0|10 0.0|20 0.0|40 1.0|100 AcDbLayout|330 1B|0 ENDSEC|0 EOF"));
  first<OdDbObject>(*database, "ARC")->mutableGroups();
  EXPECT_EQ(describe(*drawingFromText(savedBytes(*database))), describe(*database));
}

TEST(OldReleaseTest, WhatAReleaseCannotStoreIsRefusedByName) {
  struct Case {
    std::string text;
    void (*change)(OdDbDatabase&);
    const char* sentence;
  };
  const auto addMText = [](OdDbDatabase& db) { addTo(db, db.getModelSpaceId(), OdDbMText::createObject()); };
  const auto addPolyline = [](OdDbDatabase& db) {
    addTo(db, db.getModelSpaceId(), OdDbPolyline::createObject());
  };
  const auto addDictionary = [](OdDbDatabase& db) {
    first<OdDbEntity>(db, "TEXT")->createExtensionDictionary();
  };
  const auto thicken = [](OdDbDatabase& db) { first<OdDbEntity>(db, "TEXT")->setLineWeight(OdDb::kLnWt025); };
  const auto attach = [](OdDbDatabase& db) {
    const OdResBufPtr data = OdResBuf::newRb(1001, OdString(L"ACAD"));
    data->setNext(OdResBuf::newRb(1070, OdInt64{1}));
    first<OdDbEntity>(db, "TEXT")->setXData(data);
  };
  const auto askForLayouts = [](OdDbDatabase& db) { db.getLayoutDictionaryId(); };
  const Case cases[] = {
      {oldDrawing(), addMText, "release R12 cannot store MTEXT DBC (this kind of object)"},
      {drawingOfR13(), addMText, ""},
      {drawingOfR13(), addPolyline, "release R13 cannot store LWPOLYLINE 70 (this kind of object)"},
      {oldDrawing(), addDictionary, "release R12 cannot store TEXT 45 (its extension dictionary)"},
      {drawingOfR13(), addDictionary, ""},
      {oldDrawing(), thicken, "release R12 cannot store TEXT 45 (its group 370)"},
      {oldDrawing(), attach, ""},
      {oldDrawing("AC1006", false), attach, "release R10 cannot store TEXT (its extended data)"},
      {oldDrawing(), askForLayouts, ""},
  };
  for (const Case& c : cases) {
    const OdDbDatabasePtr database = drawingFromText(c.text);
    c.change(*database);
    std::string error;
    try {
      odDbWriteFile(*database, L"/nowhere/at/all.dxf");
    } catch (const OdError_FileException& refused) {
      error = refused.what();
    }
    if (*c.sentence)
      EXPECT_EQ(error,
                std::string("/nowhere/at/all.dxf: ") + c.sentence + "; save the drawing as release 2000");
    else
      EXPECT_THAT(error, HasSubstr("No such file"));
    // The way out works.
    odDbUpgradeTo2000(*database);
    EXPECT_EQ(drawingFromText(savedBytes(*database))->originalFileVersion(), OdDb::vAC15);
  }
}

std::string recordOf(OdDbDatabase& database, const char* kind) {
  std::string found;
  odDbVisitAll(database.store(), [&](OdDbStub* stub) {
    if (found.empty() && stub->dxfName() == kind) found = describe(stub);
  });
  return std::regex_replace(found, std::regex(" (5|105|330|340|342|390)=\\w+"), " $1=#");
}

TEST(ReleaseUpgradeTest, RecordsGetHandlesOwnersAndMarkers) {
  struct Case {
    const char* kind;
    const char* record;
  };
  constexpr const char* kEntity = " 5=# 330=# 100='AcDbEntity'";
  const Case cases[] = {
      {"INSERT", " 8='0' 100='AcDbBlockReference' 66=1 2='DOOR' 10=5 20=5 30=0"},
      {"ATTRIB", " 8='0' 100='AcDbText' 10=5 20=5 30=0 40=2.5 1='v' 100='AcDbAttribute' 2='TAG' 70=0"},
      {"ATTDEF", " 8='0' 100='AcDbText' 10=1 20=0 30=0 40=2.5 1='def' 72=1 11=1 21=0 31=0"
                 " 100='AcDbAttributeDefinition' 3='Prompt' 2='TAG' 70=0 74=1"},
      {"TEXT", " 67=1 8='0' 100='AcDbText' 10=1 20=1 30=0 40=2.5 1='sheet' 100='AcDbText' 73=2"},
      {"POLYLINE", " 8='WALLS' 100='AcDb3dPolyline' 66=1 10=0 20=0 30=0 70=8"},
      {"VERTEX", " 8='WALLS' 100='AcDbVertex' 100='AcDb3dPolylineVertex' 10=0 20=0 30=1 70=32"},
      {"SEQEND", " 8='0'"},
      {"ARC", " 8='0' 6='BYLAYER' 62=3 100='AcDbCircle' 39=1.5 10=0 20=0 30=0 40=1 100='AcDbArc' 50=0 51=90"},
      {"LINE", " 8='0' 100='AcDbLine' 10=0 20=0 30=4 11=1 21=1 31=4"},
      {"DIMENSION", " 8='0' 100='AcDbDimension' 2='DAB' 10=0 20=0 11=1 21=1 70=33 100='AcDbAlignedDimension'"
                    " 13=0 23=0 14=1 24=1"},
  };
  for (const bool handles : {true, false}) {
    const OdDbDatabasePtr old = drawingFromText(oldDrawing(handles ? "AC1009" : "AC1006", handles));
    odDbUpgradeTo2000(*old);
    const OdDbDatabasePtr database = drawingFromText(savedBytes(*old));
    for (const Case& c : cases)
      EXPECT_EQ(recordOf(*database, c.kind), std::string(c.kind) + ":" + kEntity + c.record);
    EXPECT_EQ(recordOf(*database, "LAYER"),
              "LAYER: 5=# 330=# 100='AcDbSymbolTableRecord' "
              "100='AcDbLayerTableRecord' 2='0' 70=0 62=7 6='CONTINUOUS' 370=-3 390=#");
    EXPECT_EQ(
        recordOf(*database, "LTYPE"),
        "LTYPE: 5=# 330=# 100='AcDbSymbolTableRecord' 100='AcDbLinetypeTableRecord' 2='DASHED' 70=0 3='' "
        "72=65 73=2 40=0.75 49=0.5 74=0 49=-0.25 74=0");
    EXPECT_EQ(
        recordOf(*database, "DIMSTYLE"),
        "DIMSTYLE: 105=# 330=# 100='AcDbSymbolTableRecord' 100='AcDbDimStyleTableRecord' 2='STANDARD' 70=0 "
        "3='' 4='' 342=# 340=#");
    if (handles) {
      EXPECT_EQ(first<OdDbEntity>(*database, "INSERT")->getDbHandle().ascii(), OdString(L"42"));
    }
  }
}

TEST(ReleaseUpgradeTest, BinaryDrawingsOfShortCodesBecomeText) {
  const std::string text = oldDrawing("AC1009", true);
  std::string upgraded[2];
  for (const auto& [index, bytes] : {std::pair(0, text), std::pair(1, toBinary(text, true))}) {
    const OdDbDatabasePtr old = drawingFromText(bytes);
    odDbUpgradeTo2000(*old);
    upgraded[index] = savedBytes(*old);
  }
  EXPECT_EQ(upgraded[1], upgraded[0].substr(0, upgraded[0].find("EOF") + 5));
}

TEST(ReleaseUpgradeTest, DrawingsGetWhatRelease2000Expects) {
  for (const Release& release : releases()) {
    SCOPED_TRACE(release.what);
    const OdDbDatabasePtr old = drawingFromText(release.text);
    old->getLayoutDictionaryId(); // one that is empty is in the way of nothing
    odDbUpgradeTo2000(*old);
    EXPECT_FALSE(old->hasUndo());
    EXPECT_THROW(odDbUpgradeTo2000(*old), OdError);
    const std::string saved = savedBytes(*old);
    const OdDbDatabasePtr database = drawingFromText(saved);
    EXPECT_EQ(savedBytes(*database), saved);
    for (const OdChar* name : {L"Layout1", L"Model"}) {
      database->setCurrentLayout(name);
      EXPECT_EQ(database->currentLayoutName(), OdString(name));
      const auto space = OdDbBlockTableRecord::cast(database->getActiveLayoutBTRId().safeOpenObject());
      EXPECT_FALSE(space->getLayoutId().isNull());
      EXPECT_EQ(space->getName().left(1), OdString(L"*"));
    }
    EXPECT_FALSE(database->getRegAppTableId().isNull());
    EXPECT_FALSE(database->getCELTYPE().isNull());
    // Every reference leads somewhere, and everything is owned.
    odDbVisitAll(database->store(), [&](OdDbStub* stub) {
      const bool isRoot =
          stub == database->getNamedObjectsDictionaryId().stub() || stub->dxfName() == "TABLE";
      EXPECT_EQ(stub->owner == nullptr, isRoot) << describe(stub);
      const OdDbGroupListPtr groups = stub->content();
      for (const OdDbGroup& group : groups->items) {
        const bool leads = odDbIsReference(group.code) && !group.isIdentity() && group.handle != 0;
        EXPECT_TRUE(!leads || database->store().find(group.handle)) << describe(stub);
      }
    });
    EXPECT_EQ(database->getSysVar(L"$HANDLING"), nullptr);
    EXPECT_LT(saved.find("$ACADVER"), 40u);
  }
}

TEST(ReleaseUpgradeTest, WhatIsNamedGetsItsRecord) {
  std::string text = oldDrawing("AC1009", false);
  text.insert(text.rfind(dxf("0 ENDSEC")), dxf("0 TEXT|8 Nowhere|6 Dots|10 0.0|20 0.0|40 1.0|1 x|7 ROMANS\n"
                                               "0 LINE|8 A<B|10 0.0|20 0.0|11 1.0|21 0.0"));
  const OdDbDatabasePtr old = drawingFromText(text);
  odDbUpgradeTo2000(*old);
  const OdDbDatabasePtr database = drawingFromText(savedBytes(*old));
  OdDbDxfFindings findings;
  odDbAudit(*database, OdDbAuditMode::readOnly, findings);
  for (const OdDbDxfFinding& finding : findings.take()) ADD_FAILURE() << finding.sentence;
  const OdDbSymbolTablePtr layers = database->getLayerTableId().safeOpenObject();
  EXPECT_TRUE(layers->has(L"nowhere"));
  EXPECT_TRUE(layers->has(L"A_B")) << "the other name is none that release 2000 allows";
}

TEST(ReleaseUpgradeTest, ViewsLeaveTheExtendedData) {
  std::string text = oldDrawing();
  const std::string viewport =
      dxf("0 VIEWPORT|5 50|67      1|8 0|10 1.0|20 2.0|30 0.0|40 3.0|41 4.0|68      1|69      1\n"
          "1001 ACAD|1000 MVIEW|1002 {|1070     16|1010 1.0|1020 2.0|1030 3.0|1010 0.0|1020 0.0|1030 "
          "1.0|1040 0.0\n"
          "1040 44.0|1040 5.0|1040 6.0|1040 50.0|1040 0.0|1040 0.0|1070      1|1070    100|1070      1|1070  "
          "    3\n"
          "1070      0|1070      1|1070      0|1070      0|1040 0.0|1040 0.0|1040 0.0|1040 7.0|1040 8.0|1040 "
          "9.0\n"
          "1040 9.0|1070      0|1002 {|1003 WALLS|1002 }|1002 }");
  text.insert(text.rfind(dxf("0 ENDSEC")), viewport);
  const OdDbDatabasePtr database = drawingFromText(text);
  odDbUpgradeTo2000(*database);
  EXPECT_THAT(
      recordOf(*database, "VIEWPORT"),
      HasSubstr(" 69=1 12=5 22=6 13=0 23=0 14=7 24=8 15=9 25=9 16=0 26=0 36=1 17=1 27=2 37=3 42=50 43=0 "
                "44=0 45=44 50=0 51=0 72=100 331="));
  EXPECT_THAT(recordOf(*database, "VIEWPORT"), HasSubstr(" 90=737 1001='ACAD' 1000='MVIEW'"));
}

TEST(ReleaseUpgradeTest, SettingsThatWereSplitKeepTheirMeaning) {
  const OdDbDatabasePtr database = drawingFromText(oldDrawing());
  odDbUpgradeTo2000(*database);
  const auto value = [&](const OdChar* name) { return database->getSysVar(name)->getInt16(); };
  EXPECT_EQ(value(L"$DIMATFIT"), 3);
  EXPECT_EQ(value(L"$DIMTMOVE"), 1);
  EXPECT_EQ(database->getSysVar(L"$DIMFIT"), nullptr);
  EXPECT_EQ(value(L"$INSUNITS"), 0) << "nobody said millimetres";
}

} // namespace
