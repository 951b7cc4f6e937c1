// What real drawings do with attributes and references, beyond what a tidy drawing would.
#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "support/drawings.h"
#include <gtest/gtest.h>

namespace {

std::string attribute(const char* handle, const char* tag, const char* value, const char* extra = "") {
  return std::string("0\nATTRIB\n5\n") + handle + "\n" + extra +
         "330\nA0\n100\nAcDbEntity\n8\n0\n100\nAcDbText\n10\n0.0\n20\n0.0\n30\n0.0\n40\n2.5\n1\n" + value +
         "\n100\nAcDbAttribute\n2\n" + tag + "\n70\n0\n";
}

std::string drawing(const std::string& attributes, const char* block = "DOOR", const char* objects = "") {
  return std::string(
             "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1027\n0\nENDSEC\n"
             "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n5\n90\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockBegin\n2\nDOOR\n"
             "70\n2\n10\n0.0\n20\n0.0\n30\n0.0\n0\nENDBLK\n5\n91\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockEnd\n"
             "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nINSERT\n5\nA0\n100\nAcDbEntity\n8\n0\n"
             "100\nAcDbBlockReference\n66\n1\n2\n") +
         block + "\n10\n1.0\n20\n2.0\n30\n0.0\n" + attributes +
         "0\nSEQEND\n5\nAF\n330\nA0\n100\nAcDbEntity\n8\n0\n0\nENDSEC\n0\nSECTION\n2\nOBJECTS\n" + objects +
         "0\nENDSEC\n0\nEOF\n";
}

using Values = std::vector<std::pair<OdString, OdString>>;

OdDbBlockReferencePtr reference(OdDbDatabase& db) {
  return db.getOdDbObjectId(OdDbHandle(0xA0)).safeOpenObject();
}

Values valuesOf(OdDbDatabase& db) {
  Values values;
  for (auto i = reference(db)->attributeIterator(); !i->done(); i->step()) {
    const OdDbAttributePtr attribute = i->entity();
    values.emplace_back(attribute->tag(), attribute->textString());
  }
  return values;
}

TEST(AttributeFacts, TagsMayHoldBlanksAndDifferInCaseOnly) {
  const auto db = test::drawingFromText(drawing(
      attribute("A1", "ROOM NO", "1") + attribute("A2", "Room No", "2") + attribute("A3", " X", "3")));
  EXPECT_EQ(valuesOf(*db), (Values{{L"ROOM NO", L"1"}, {L"Room No", L"2"}, {L" X", L"3"}}));
}

TEST(AttributeFacts, NumberedTagsWithoutAMultilineRecordAreAttributesOfTheirOwn) {
  const auto db =
      test::drawingFromText(drawing(attribute("A1", "NOTE_001", "one") + attribute("A2", "NOTE_002", "two")));
  EXPECT_EQ(valuesOf(*db), (Values{{L"NOTE_001", L"one"}, {L"NOTE_002", L"two"}}));
}

TEST(AttributeFacts, HandlesUseAllBits) {
  const std::string text = drawing(attribute("D9B071D01A0CB618", "TAG", "1"));
  const auto db = test::drawingFromText(text);
  const OdDbObjectId id = db->getOdDbObjectId(OdDbHandle(L"D9B071D01A0CB618"));
  ASSERT_TRUE(id.isValid());
  OdDbAttributePtr(id.safeOpenObject(OdDb::kForWrite))->setTextString(L"2");
  EXPECT_NE(test::savedBytes(*db).find("D9B071D01A0CB618\n"), std::string::npos);
  const auto copy = test::drawingFromText(test::savedBytes(*db));
  EXPECT_EQ(valuesOf(*copy), (Values{{L"TAG", L"2"}}));
}

TEST(AttributeFacts, ReferenceToAMissingBlockKeepsItsName) {
  const auto db = test::drawingFromText(drawing(attribute("A1", "TAG", "1"), "NOWHERE"));
  EXPECT_TRUE(reference(*db)->blockTableRecord().isNull());
  EXPECT_EQ(reference(*db)->blockName(), L"NOWHERE");
  OdGeExtents3d extents;
  reference(*db)->getGeomExtents(extents);
  OdDbBlockReferencePtr(reference(*db)->objectId().safeOpenObject(OdDb::kForWrite))->setColorIndex(1);
  EXPECT_NE(test::savedBytes(*db).find("\nNOWHERE\n"), std::string::npos);
}

TEST(AttributeFacts, FieldsSurviveOtherChanges) {
  const std::string fields =
      "0\nDICTIONARY\n5\nC\n330\n0\n100\nAcDbDictionary\n0\nDICTIONARY\n5\nB1\n330\nA1\n100\nAcDbDictionary\n"
      "3\n"
      "ACAD_"
      "FIELD\n360\nB2\n0\nDICTIONARY\n5\nB2\n330\nB1\n100\nAcDbDictionary\n3\nTEXT\n360\nB3\n0\nFIELD\n5\nB3"
      "\n"
      "330\nB2\n100\nAcDbField\n1\n_text\n2\n%<\\_FldIdx 0>%\n7\nACFD_FIELDTEXT_ATTDEF\n";
  const std::string extension = "102\n{ACAD_XDICTIONARY\n360\nB1\n102\n}\n";
  std::string preset = attribute("A1", "TAG", "today", extension.c_str());
  preset.replace(preset.rfind("70\n0\n"), 5, "70\n8\n");
  std::string definition = drawing(attribute("A2", "TAG", "today"), "DOOR", fields.c_str());
  definition.insert(definition.find("0\nENDBLK"), "0\nATTDEF\n5\nA1\n" + extension +
                                                      "100\nAcDbText\n40\n2.5\n1\n----\n100\n"
                                                      "AcDbAttributeDefinition\n3\nDate\n2\nTAG\n70\n0\n");
  const std::string drawings[] = {
      drawing(attribute("A1", "TAG", "today", extension.c_str()), "DOOR", fields.c_str()),
      drawing(preset, "DOOR", fields.c_str()), definition};
  for (const std::string& text : drawings) {
    const auto db = test::drawingFromText(text);
    OdDbTextPtr(db->getOdDbObjectId(OdDbHandle(0xA1)).safeOpenObject(OdDb::kForWrite))->setHeight(5);
    const auto copy = test::drawingFromText(test::savedBytes(*db));
    const OdDbTextPtr owner = copy->getOdDbObjectId(OdDbHandle(0xA1)).safeOpenObject();
    EXPECT_EQ(owner->height(), 5);
    const OdDbDictionaryPtr own = owner->extensionDictionary().safeOpenObject();
    const OdDbDictionaryPtr found = own->getAt(L"ACAD_FIELD").safeOpenObject();
    EXPECT_EQ(found->getAt(L"TEXT").getHandle().ascii(), L"B3");
    EXPECT_NE(test::savedBytes(*copy).find("ACFD_FIELDTEXT_ATTDEF"), std::string::npos);
  }
}

TEST(AttributeFacts, AnonymousBlocksKeepTheNameOfTheBlockTheyStandFor) {
  const std::string record =
      "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nBLOCK_RECORD\n5\n1\n0\nBLOCK_RECORD\n5\n80\n330\n1\n"
      "100\nAcDbBlockTableRecord\n2\n*U14\n1001\nAcDbBlockRepBTag\n1070\n1\n1005\n81\n"
      "0\nBLOCK_RECORD\n5\n81\n330\n1\n100\nAcDbBlockTableRecord\n2\nDOOR\n0\nENDTAB\n0\nENDSEC\n";
  std::string text = drawing(attribute("A1", "TAG", "1"), "*u14");
  text.insert(text.find("0\nSECTION\n2\nBLOCKS"), record);
  const auto db = test::drawingFromText(text);
  EXPECT_EQ(reference(*db)->blockTableRecord(), db->getOdDbObjectId(OdDbHandle(0x80)));
  db->getOdDbObjectId(OdDbHandle(0x80)).safeOpenObject(OdDb::kForWrite)->mutableGroups(); // written anew
  const auto copy = test::drawingFromText(test::savedBytes(*db));
  const OdResBufPtr named =
      copy->getOdDbObjectId(OdDbHandle(0x80)).safeOpenObject()->xData(L"AcDbBlockRepBTag");
  ASSERT_FALSE(named.isNull());
  EXPECT_EQ(named->last()->getHandle().ascii(), L"81");
}

} // namespace
