// Attributes of several lines: one thing to callers, whichever of the two stored forms a drawing has.
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbBlockReference.h"
#include "DbXrecord.h"
#include "tables_drawing.h"
#include <gmock/gmock.h>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::Not;

/// A reference with attributes, in a drawing of a given release.
class MultilineTest : public testing::Test {
protected:
  SmallDrawing drawing;
  OdDbObjectId reference;

  void begin(OdDb::DwgVersion version) {
    drawing.store().version = version;
    drawing.addBlock(L"DOOR");
    reference = drawing.addReference(drawing.db->getModelSpaceId(), "DOOR");
  }

  OdDbAttributePtr addAttribute(std::initializer_list<SmallDrawing::Group> groups) {
    return drawing.addRaw("ATTRIB", reference, groups).safeOpenObject(OdDb::kForWrite);
  }

  /// As the 2018 release stores it: the outer record repeats codes of the embedded one with other values.
  OdDbAttributePtr addEmbedded() {
    return addAttribute({{100, "AcDbEntity"},
                         {8, "0"},
                         {100, "AcDbText"},
                         {10, 100.0},
                         {20, 98.0},
                         {30, 0.0},
                         {40, 2.0},
                         {1, ""},
                         {7, "Notes"},
                         {11, 100.0},
                         {21, 100.0},
                         {31, 0.0},
                         {100, "AcDbAttribute"},
                         {280, 0},
                         {2, "REMARK"},
                         {70, 8},
                         {74, 3},
                         {280, 1},
                         {71, 2},
                         {72, 0},
                         {11, 100.0},
                         {21, 100.0},
                         {31, 0.0},
                         {101, "Embedded Object"},
                         {10, 100.0},
                         {20, 100.0},
                         {30, 0.0},
                         {40, 2.0},
                         {41, 30.0},
                         {46, 0.0},
                         {71, 1},
                         {72, 5},
                         {3, "first "},
                         {1, "line\\Psecond"},
                         {7, "Notes"},
                         {73, 1},
                         {44, 1.0},
                         {1001, "APP"},
                         {1000, "mine"}});
  }

  /// As the releases from 2000 to 2013 store it.
  OdDbAttributePtr addRecordForm(OdDbObjectId further = OdDbObjectId()) {
    OdDbAttributePtr attribute = addAttribute({{100, "AcDbEntity"},
                                               {8, "0"},
                                               {100, "AcDbText"},
                                               {10, 100.0},
                                               {20, 98.0},
                                               {30, 0.0},
                                               {40, 2.0},
                                               {1, "first line"},
                                               {100, "AcDbAttribute"},
                                               {280, 0},
                                               {2, "REMARK_001"},
                                               {70, 8},
                                               {280, 1}});
    OdDbDictionaryPtr dictionary = attribute->createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
    OdDbXrecordPtr record = OdDbXrecord::createObject();
    OdDbGroupList& list = record->mutableGroups();
    for (const int number : {2, 0, further.isNull() ? 0 : 1}) list.append(OdDbGroup::ofInteger(70, number));
    if (!further.isNull()) list.append(OdDbGroup::ofHandle(340, further.getHandle()));
    list.append(OdDbGroup::ofReal(40, 1));
    list.append(list.makeBytes(2, "REMARK"));
    list.append(list.makeBytes(1, "Embedded Object"));
    for (const auto& [code, value] : {std::pair(10, 100.0), {20, 100.0}, {30, 0.0}, {40, 2.0}, {41, 30.0}})
      list.append(OdDbGroup::ofReal(code, value));
    list.append(OdDbGroup::ofInteger(71, OdDbMText::kTopRight));
    list.append(list.makeBytes(1, "first line\\Psecond"));
    dictionary->setAt(L"ACAD_MLATT", record);
    return attribute;
  }

  std::vector<std::wstring> tags() {
    const OdDbBlockReferencePtr open = reference.safeOpenObject();
    std::vector<std::wstring> found;
    for (auto each = open->attributeIterator(); !each->done(); each->step())
      found.push_back(OdDbAttributePtr(each->entity())->tag().str());
    return found;
  }
};

TEST_F(MultilineTest, EmbeddedRecordDoesNotOverwriteTheAttributesOwnGroups) {
  begin(OdDb::vAC32);
  const OdDbAttributePtr attribute = addEmbedded();
  EXPECT_TRUE(attribute->isMTextAttribute());
  EXPECT_EQ(attribute->textString(), OdString(L"first line\\Psecond"));
  EXPECT_EQ(attribute->tag(), OdString(L"REMARK"));
  EXPECT_EQ(attribute->position(), OdGePoint3d(100, 98, 0));
  EXPECT_EQ(attribute->widthFactor(), 1);
  EXPECT_EQ(attribute->fieldLength(), 0);
  EXPECT_EQ(attribute->verticalMode(), OdDb::kTextTop);
  EXPECT_FALSE(attribute->isMirroredInX());
  EXPECT_TRUE(attribute->isPreset());
  EXPECT_TRUE(attribute->lockPositionInBlock());
  const OdDbMTextPtr text = attribute->getMTextAttribute();
  EXPECT_FALSE(text->isDBRO());
  EXPECT_EQ(text->width(), 30);
  EXPECT_EQ(text->attachment(), OdDbMText::kTopLeft);
  EXPECT_EQ(text->textStyleName(), OdString(L"Notes"));
}

TEST_F(MultilineTest, RecordOfTheExtensionDictionaryGivesTagTextAndPlace) {
  begin(OdDb::vAC27);
  const OdDbAttributePtr attribute = addRecordForm();
  EXPECT_TRUE(attribute->isMTextAttribute());
  EXPECT_EQ(attribute->tag(), OdString(L"REMARK"));
  EXPECT_EQ(attribute->textString(), OdString(L"first line\\Psecond"));
  EXPECT_EQ(attribute->alignmentPoint(), OdGePoint3d(100, 100, 0));
  EXPECT_EQ(attribute->horizontalMode(), OdDb::kTextRight);
  EXPECT_EQ(attribute->verticalMode(), OdDb::kTextTop);
  EXPECT_EQ(attribute->getMTextAttribute()->width(), 30);
}

TEST_F(MultilineTest, WhatIsSetIsReadBackAndKeepsTheStoredForm) {
  for (const OdDb::DwgVersion version : {OdDb::vAC27, OdDb::vAC32}) {
    SCOPED_TRACE(version);
    drawing = SmallDrawing();
    begin(version);
    const OdDbAttributePtr attribute = version == OdDb::vAC32 ? addEmbedded() : addRecordForm();
    attribute->setTextString(L"one\r\ntwo\nthree");
    attribute->setTag(L"NOTE");
    attribute->setHeight(5);
    attribute->setAlignmentPoint(OdGePoint3d(7, 8, 0));
    attribute->setHorizontalMode(OdDb::kTextCenter);
    OdDbMTextPtr text = attribute->getMTextAttribute();
    text->setWidth(44);
    attribute->setMTextAttribute(text);

    EXPECT_EQ(attribute->textString(), OdString(L"one\\Ptwo\\Pthree"));
    EXPECT_EQ(attribute->tag(), OdString(L"NOTE"));
    text = attribute->getMTextAttribute();
    EXPECT_EQ(text->textHeight(), 5);
    EXPECT_EQ(text->width(), 44);
    EXPECT_EQ(text->location(), OdGePoint3d(7, 8, 0));
    EXPECT_EQ(text->attachment(), OdDbMText::kTopCenter);
    const std::vector<std::string> written = writtenGroups(attribute->objectId());
    if (version == OdDb::vAC32) {
      EXPECT_THAT(written, Contains("101:Embedded Object"));
      EXPECT_THAT(written, Contains("2:NOTE"));
      EXPECT_THAT(written, Contains("1:")); // the outer text stays empty
      EXPECT_EQ(written.back(), "1000:mine");
    } else {
      EXPECT_THAT(written, Not(Contains("101:Embedded Object")));
      EXPECT_THAT(written, Contains("2:NOTE_001"));
      EXPECT_THAT(written, Contains("1:one"));
    }
  }
}

TEST_F(MultilineTest, NewAttributesGetTheFormOfTheirDrawing) {
  struct Case {
    OdDb::DwgVersion version;
    bool multiline;
    std::vector<std::string> written;
    std::vector<std::string> notWritten;
  };
  const Case cases[] = {
      {OdDb::vAC32, true, {"101:Embedded Object", "2:NOTE", "280:0"}, {"2:NOTE_001"}},
      {OdDb::vAC24, true, {"102:{ACAD_XDICTIONARY", "2:NOTE_001", "1:a b", "280:0"}, {"101:Embedded Object"}},
      {OdDb::vAC18, true, {"102:{ACAD_XDICTIONARY", "2:NOTE_001"}, {"280:0", "280:1"}},
      {OdDb::vAC09, false, {"2:NOTE", "1:a b second"}, {"101:Embedded Object", "280:0"}},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.version);
    drawing = SmallDrawing();
    begin(expected.version);
    const OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setTag(L"NOTE");
    EXPECT_EQ(attribute->convertIntoMTextAttribute(), eOk);
    attribute->setTextString(L"{\\fArial|b1;a} b\\Psecond");
    OdDbBlockReferencePtr(reference.safeOpenObject(OdDb::kForWrite))->appendAttribute(attribute);

    EXPECT_EQ(attribute->isMTextAttribute(), expected.multiline);
    EXPECT_EQ(attribute->tag(), OdString(L"NOTE"));
    if (expected.multiline) {
      EXPECT_EQ(attribute->textString(), OdString(L"{\\fArial|b1;a} b\\Psecond"));
    }
    const std::vector<std::string> written = writtenGroups(attribute->objectId());
    for (const std::string& line : expected.written) EXPECT_THAT(written, Contains(line));
    for (const std::string& line : expected.notWritten) EXPECT_THAT(written, Not(Contains(line)));
  }
}

TEST_F(MultilineTest, GoingBackToOneLineDropsFormattingAndTheRecord) {
  begin(OdDb::vAC27);
  const OdDbAttributePtr attribute = addRecordForm();
  attribute->setTextString(L"a\\~b {\\H2x;c}\\Pd\\\\e \\S1^2;");
  EXPECT_EQ(attribute->convertIntoMTextAttribute(false), eOk);
  EXPECT_FALSE(attribute->isMTextAttribute());
  EXPECT_EQ(attribute->textString(), OdString(L"a b c d\\e 1/2"));
  EXPECT_EQ(attribute->tag(), OdString(L"REMARK"));
  EXPECT_TRUE(attribute->extensionDictionary().isErased());
}

TEST_F(MultilineTest, FurtherLinesAreHiddenAndGoWhenTheTextChanges) {
  begin(OdDb::vAC27);
  const OdDbObjectId second =
      addAttribute({{100, "AcDbText"}, {1, "second"}, {100, "AcDbAttribute"}, {2, "REMARK_002"}, {70, 0}})
          ->objectId();
  const OdDbAttributePtr attribute = addRecordForm(second);
  addAttribute({{100, "AcDbText"}, {1, "x"}, {100, "AcDbAttribute"}, {2, "OTHER_001"}, {70, 0}});
  EXPECT_THAT(tags(), ElementsAre(L"REMARK", L"OTHER_001"));
  attribute->setTextString(L"short");
  EXPECT_TRUE(second.isErased());
  EXPECT_EQ(attribute->textString(), OdString(L"short"));
  EXPECT_THAT(tags(), ElementsAre(L"REMARK", L"OTHER_001"));
}

TEST_F(MultilineTest, CopyWithoutDatabaseIsWholeAndIndependent) {
  begin(OdDb::vAC27);
  const OdDbAttributePtr attribute = addRecordForm();
  const OdDbAttributePtr copy = attribute->clone();
  EXPECT_EQ(copy->tag(), OdString(L"REMARK"));
  EXPECT_EQ(copy->textString(), OdString(L"first line\\Psecond"));
  copy->setTextString(L"changed");
  EXPECT_EQ(attribute->textString(), OdString(L"first line\\Psecond"));
}

TEST_F(MultilineTest, UndoTakesBackTheRecordToo) {
  begin(OdDb::vAC27);
  const OdDbObjectId id = addRecordForm()->objectId();
  drawing.db->startUndoRecord();
  OdDbAttributePtr(id.safeOpenObject(OdDb::kForWrite))->setTextString(L"changed");
  EXPECT_TRUE(drawing.db->undo());
  EXPECT_EQ(OdDbAttributePtr(id.safeOpenObject())->textString(), OdString(L"first line\\Psecond"));
}

TEST(MTextContents, LongTextIsStoredInPiecesThatSplitNoCharacter) {
  const OdDbMTextPtr text = OdDbMText::createObject();
  std::wstring contents(249, L'a');
  for (int i = 0; i < 300; ++i) contents += L'\x00e4';
  text->setContents(OdString(contents));
  EXPECT_EQ(text->contents().str(), contents);
  int pieces = 0;
  for (const OdDbGroup& group : text->groups().items) {
    if (group.code != 1 && group.code != 3) continue;
    ++pieces;
    EXPECT_LE(group.size, 250u);
    EXPECT_EQ(text->groups().text(group).find(OdString(L"\xFFFD")), -1);
  }
  EXPECT_EQ(pieces, 4);
  text->setContents(L"short");
  EXPECT_EQ(text->contents(), OdString(L"short"));
}

} // namespace
