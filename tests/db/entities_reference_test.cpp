// References, their attributes, and the properties that all entities share.
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbBlockReference.h"
#include "DbLine.h"
#include "DbProxyEntity.h"
#include "DbSequenceEnd.h"
#include "DbViewport.h"
#include "tables_drawing.h"
#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

class ReferenceTest : public testing::Test {
protected:
  SmallDrawing drawing;
  OdDbObjectId block = drawing.addBlock(L"DOOR");
  OdDbBlockReferencePtr reference =
      drawing.addReference(drawing.db->getModelSpaceId(), "door").safeOpenObject(OdDb::kForWrite);

  OdDbObjectId append(const wchar_t* tag) {
    const OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setTag(tag);
    return reference->appendAttribute(attribute);
  }
  std::vector<std::wstring> tags() const {
    std::vector<std::wstring> found;
    for (auto each = reference->attributeIterator(); !each->done(); each->step())
      found.push_back(OdDbAttributePtr(each->entity())->tag().str());
    return found;
  }
  std::vector<std::string> stored() const {
    std::vector<std::string> names;
    const OdDbStubList* list = reference->objectId().stub()->children;
    for (const OdDbStub* stub = list->first; stub; stub = stub->next)
      names.push_back(stub->dxfName() + (stub->isErased() ? " erased" : ""));
    return names;
  }
};

TEST_F(ReferenceTest, AttributesStandBeforeOneEndMark) {
  EXPECT_EQ(reference->blockTableRecord(), block);
  const OdDbObjectId first = append(L"A");
  append(L"B");
  EXPECT_THAT(stored(), ElementsAre("ATTRIB", "ATTRIB", "SEQEND"));
  first.safeOpenObject(OdDb::kForWrite)->erase();
  append(L"C");
  EXPECT_THAT(stored(), ElementsAre("ATTRIB erased", "ATTRIB", "ATTRIB", "SEQEND"));
  EXPECT_THAT(tags(), ElementsAre(L"B", L"C"));
  EXPECT_THAT(writtenGroups(reference->objectId()), testing::Contains("66:1"));
  EXPECT_EQ(OdDbObjectId(first).safeOpenObject(OdDb::kForRead, true)->ownerId(), reference->objectId());

  const OdDbBlockReferencePtr copy = reference->clone();
  EXPECT_TRUE(copy->attributeIterator()->done());
  EXPECT_THROW(copy->appendAttribute(OdDbAttribute::createObject()), OdError);
}

TEST_F(ReferenceTest, UndoOfTheFirstAttributeLeavesNone) {
  drawing.db->startUndoRecord();
  append(L"A");
  EXPECT_TRUE(drawing.db->undo());
  EXPECT_THAT(tags(), ElementsAre());
  append(L"B");
  EXPECT_THAT(tags(), ElementsAre(L"B"));
}

TEST_F(ReferenceTest, ArrayGoesUnderItsOwnMarker) {
  reference->setNumColumns(3);
  EXPECT_THAT(writtenGroups(reference->objectId()), testing::Contains("100:AcDbMInsertBlock"));
  reference->setNumRows(2);
  reference->setColumnSpacing(5);
  reference->setRowSpacing(7);
  reference->setRotation(OdaPI2);
  EXPECT_EQ(reference->numColumns(), 3);
  EXPECT_EQ(reference->blockTableRecord(), block);
  EXPECT_THROW(reference->setNumRows(0), OdError);
  const OdDbLinePtr line = OdDbLine::createObject();
  line->setEndPoint(OdGePoint3d(1, 0, 0));
  drawing.block(block)->appendOdDbEntity(line);
  OdGeExtents3d box;
  ASSERT_EQ(reference->getGeomExtents(box), eOk);
  EXPECT_EQ(box.minPoint(), OdGePoint3d(-7, 0, 0));
  EXPECT_EQ(box.maxPoint(), OdGePoint3d(0, 11, 0));
  reference->setNumRows(1);
  reference->setNumColumns(1);
  EXPECT_THAT(writtenGroups(reference->objectId()), testing::Contains("100:AcDbBlockReference"));
}

TEST_F(ReferenceTest, BlockThatContainsItselfHasExtents) {
  drawing.addReference(block, "DOOR");
  drawing.addReference(block, "MISSING");
  drawing.addPoint(block);
  OdGeExtents3d box;
  EXPECT_EQ(reference->getGeomExtents(box), eOk);
  EXPECT_EQ(box.maxPoint(), OdGePoint3d());
}

/// Keeps the calls that an object makes on a filer that asks for defaults.
class CallRecorder final : public OdDbDxfFiler {
public:
  std::vector<std::string> calls;
  bool includesDefaultValues() const override { return true; }
  void wrName(int code, const OdString& value) override { add("name", code, value.toUtf8()); }
  void wrString(int code, const OdString& value) override { add("string", code, value.toUtf8()); }
  void wrBool(int code, bool value) override { add("bool", code, value ? "1" : "0"); }
  void wrInt8(int code, OdInt8) override { add("int8", code, ""); }
  void wrUInt8(int code, OdUInt8) override { add("uint8", code, ""); }
  void wrInt16(int code, OdInt16 value) override { add("int16", code, std::to_string(value)); }
  void wrUInt16(int code, OdUInt16) override { add("uint16", code, ""); }
  void wrInt32(int code, OdInt32 value) override { add("int32", code, std::to_string(value)); }
  void wrUInt32(int code, OdUInt32) override { add("uint32", code, ""); }
  void wrInt64(int code, OdInt64) override { add("int64", code, ""); }
  void wrUInt64(int code, OdUInt64) override { add("uint64", code, ""); }
  void wrHandle(int code, OdDbHandle) override { add("handle", code, ""); }
  void wrObjectId(int code, OdDbObjectId) override { add("id", code, ""); }
  void wrAngle(int code, double value) override {
    add("angle", code, OdString().format(L"%.4f", value).toUtf8());
  }
  void wrDouble(int code, double value) override {
    add("real", code, OdString().format(L"%.1f", value).toUtf8());
  }
  void wrPoint2d(int code, const OdGePoint2d&) override { add("point2d", code, ""); }
  void wrPoint3d(int code, const OdGePoint3d& p) override { triple("point", code, p.x, p.y, p.z); }
  void wrVector2d(int code, const OdGeVector2d&) override { add("vector2d", code, ""); }
  void wrVector3d(int code, const OdGeVector3d& v) override { triple("vector", code, v.x, v.y, v.z); }
  void wrScale3d(int code, const OdGeScale3d& s) override { triple("scale", code, s.sx, s.sy, s.sz); }
  void wrBinaryChunk(int code, const OdUInt8*, OdUInt32) override { add("binary", code, ""); }

private:
  void add(const char* kind, int code, const std::string& value) {
    calls.push_back(kind + std::string(" ") + std::to_string(code) + (value.empty() ? "" : " " + value));
  }
  void triple(const char* kind, int code, double a, double b, double c) {
    add(kind, code, OdString().format(L"%.0f %.0f %.0f", a, b, c).toUtf8());
  }
};

TEST_F(ReferenceTest, CanonicalOutputHoldsEveryFieldInOrder) {
  append(L"A");
  reference->setPosition(OdGePoint3d(1, 2, 3));
  reference->setRotation(OdaPI2);
  const OdSmartPtr<CallRecorder> recorder(new CallRecorder, kOdRxObjAttach);
  reference->dxfOut(recorder);
  const auto section =
      std::find(recorder->calls.begin(), recorder->calls.end(), "string 100 AcDbBlockReference");
  EXPECT_THAT(std::vector<std::string>(section, recorder->calls.end()),
              ElementsAre("string 100 AcDbBlockReference", "bool 66 1", "name 2 door", "point 10 1 2 3",
                          "scale 41 1 1 1", "angle 50 1.5708", "int16 70 1", "int16 71 1", "real 44 0.0",
                          "real 45 0.0", "vector 210 0 0 1"));
}

// --- attributes from their definitions ---

TEST_F(ReferenceTest, AttributeIsThePlacedDefinition) {
  drawing.addLayer(L"Texts");
  const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
  drawing.block(block)->appendOdDbEntity(definition);
  definition->setTag(L"NUMBER");
  definition->setPrompt(L"Which?");
  definition->setTextString(L"7");
  definition->setLayer(L"texts");
  definition->setColorIndex(3);
  definition->setHeight(2);
  definition->setRotation(0.25);
  definition->setHorizontalMode(OdDb::kTextRight);
  definition->setVerticalMode(OdDb::kTextTop);
  definition->setPosition(OdGePoint3d(1, 0, 0));
  definition->setAlignmentPoint(OdGePoint3d(3, 1, 0));
  definition->setInvisible(true);
  definition->setVerifiable(true);
  definition->setLockPositionInBlock(true);
  reference->setPosition(OdGePoint3d(10, 20, 0));
  reference->setScaleFactors(OdGeScale3d(2));
  reference->setRotation(OdaPI2);

  const OdDbAttributePtr attribute = append(L"OLD").safeOpenObject(OdDb::kForWrite);
  attribute->convertIntoMTextAttribute();
  attribute->setAttributeFromBlock(definition, reference->blockTransform());
  EXPECT_FALSE(attribute->isMTextAttribute());
  EXPECT_EQ(attribute->tag(), OdString(L"NUMBER"));
  EXPECT_EQ(attribute->textString(), OdString(L"7"));
  EXPECT_EQ(attribute->layer(), OdString(L"Texts"));
  EXPECT_EQ(attribute->colorIndex(), 3);
  EXPECT_DOUBLE_EQ(attribute->height(), 4);
  EXPECT_NEAR(attribute->rotation(), 0.25 + OdaPI2, 1e-12);
  EXPECT_EQ(attribute->position(), OdGePoint3d(10, 22, 0));
  EXPECT_EQ(attribute->alignmentPoint(), OdGePoint3d(8, 26, 0));
  EXPECT_EQ(attribute->horizontalMode(), OdDb::kTextRight);
  EXPECT_EQ(attribute->verticalMode(), OdDb::kTextTop);
  EXPECT_TRUE(attribute->isInvisible());
  EXPECT_TRUE(attribute->isVerifiable());
  EXPECT_FALSE(attribute->isConstant());
  EXPECT_TRUE(attribute->lockPositionInBlock());
  EXPECT_EQ(attribute->schema().back()->field(3), nullptr); // prompts stay with definitions
}

TEST_F(ReferenceTest, AttributeOfSeveralLinesIsThePlacedDefinition) {
  for (const OdDb::DwgVersion version : {OdDb::vAC27, OdDb::vAC32}) {
    SCOPED_TRACE(version);
    drawing.store().version = version;
    const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
    definition->setTag(L"NOTE");
    definition->setTextString(L"default");
    definition->setVerticalMode(OdDb::kTextTop);
    definition->convertIntoMTextAttributeDefinition();
    const OdDbMTextPtr text = definition->getMTextAttributeDefinition();
    text->setWidth(10);
    definition->setMTextAttributeDefinition(text);
    definition->setPosition(OdGePoint3d(1, 0, 0));
    definition->setAlignmentPoint(OdGePoint3d(1, 2, 0));
    definition->updateMTextAttributeDefinition();
    drawing.block(block)->appendOdDbEntity(definition);
    const OdDbAttributePtr attribute = append(L"OLD").safeOpenObject(OdDb::kForWrite);
    attribute->setAttributeFromBlock(definition, OdGeMatrix3d::scaling(2.0));
    EXPECT_TRUE(attribute->isMTextAttribute());
    EXPECT_EQ(attribute->tag(), OdString(L"NOTE"));
    EXPECT_EQ(attribute->textString(), OdString(L"default"));
    EXPECT_EQ(attribute->getMTextAttribute()->width(), 20);
    EXPECT_EQ(attribute->getMTextAttribute()->textHeight(), 2);
    EXPECT_EQ(attribute->getMTextAttribute()->location(), OdGePoint3d(2, 4, 0));
    EXPECT_EQ(attribute->alignmentPoint(), OdGePoint3d(2, 4, 0));
    EXPECT_EQ(definition->getMTextAttributeDefinition()->location(), OdGePoint3d(1, 2, 0));
  }
}

// --- groups with two meanings ---

TEST_F(ReferenceTest, GroupsOfTheSameCodeKeepApart) {
  // The version stands before the tag, the lock behind it; older releases have the lock alone.
  const auto attribute = [&](std::initializer_list<SmallDrawing::Group> groups) {
    return OdDbAttributePtr(
        drawing.addRaw("ATTRIB", reference->objectId(), groups).safeOpenObject(OdDb::kForWrite));
  };
  EXPECT_FALSE(
      attribute({{100, "AcDbAttribute"}, {280, 1}, {2, "A"}, {70, 0}, {74, 2}})->lockPositionInBlock());
  EXPECT_TRUE(attribute({{100, "AcDbAttribute"}, {2, "A"}, {70, 0}, {280, 1}})->lockPositionInBlock());
  const OdDbAttributePtr both = attribute(
      {{100, "AcDbText"}, {73, 9}, {100, "AcDbAttribute"}, {280, 0}, {2, "A"}, {70, 0}, {73, 5}, {74, 2}});
  both->setLockPositionInBlock(true);
  both->setInvisible(true);
  EXPECT_EQ(both->verticalMode(), OdDb::kTextVCenter);
  EXPECT_EQ(both->fieldLength(), 5);
  const std::vector<std::string> written = writtenGroups(both->objectId());
  EXPECT_THAT(std::vector<std::string>(written.end() - 7, written.end()),
              ElementsAre("100:AcDbAttribute", "280:0", "2:A", "70:1", "73:5", "74:2", "280:1"));
}

TEST_F(ReferenceTest, VerticalAlignmentOfTextsGoesBehindTheSecondMarker) {
  const OdDbTextPtr text = drawing
                               .addRaw("TEXT", drawing.db->getModelSpaceId(),
                                       {{100, "AcDbEntity"},
                                        {8, "0"},
                                        {100, "AcDbText"},
                                        {10, 1.0},
                                        {20, 2.0},
                                        {30, 0.0},
                                        {40, 1.0},
                                        {1, "x"},
                                        {100, "AcDbText"}})
                               .safeOpenObject(OdDb::kForWrite);
  text->setVerticalMode(OdDb::kTextTop);
  EXPECT_EQ(text->verticalMode(), OdDb::kTextTop);
  EXPECT_EQ(text->alignmentPoint(), OdGePoint3d(1, 2, 0)); // files must hold both points now
  const std::vector<std::string> written = writtenGroups(text->objectId());
  EXPECT_THAT(std::vector<std::string>(written.end() - 2, written.end()),
              ElementsAre("100:AcDbText", "73:3"));
  EXPECT_EQ(std::count(written.begin(), written.end(), "100:AcDbText"), 2);
}

// --- properties that all entities share ---

TEST_F(ReferenceTest, ColoursAreStoredOnce) {
  struct Case {
    OdCmColor color;
    int index;
    std::vector<std::string> groups;
  };
  const Case cases[] = {
      {OdCmColor(), 256, {}},
      {OdCmColor::fromIndex(0), 0, {"62:0"}},
      {OdCmColor::fromIndex(5), 5, {"62:5"}},
      {OdCmColor::fromRgb(255, 128, 1), 256, {"420:16744449"}},
      {OdCmColor::fromIndex(256), 256, {}},
  };
  for (const Case& expected : cases) {
    reference->setColor(expected.color);
    EXPECT_EQ(reference->color(), expected.color);
    EXPECT_EQ(reference->colorIndex(), expected.index);
    std::vector<std::string> stored;
    for (const std::string& line : writtenGroups(reference->objectId()))
      if (line.starts_with("62:") || line.starts_with("420:")) stored.push_back(line);
    EXPECT_EQ(stored, expected.groups);
  }
}

TEST_F(ReferenceTest, NamesAreThoseOfTheDrawing) {
  const OdDbObjectId walls = drawing.addLayer(L"Walls");
  reference->setLayer(L"WALLS");
  EXPECT_EQ(reference->layer(), OdString(L"Walls"));
  EXPECT_EQ(reference->layerId(), walls);
  EXPECT_THROW(reference->setLayer(L"Missing"), OdError);
  EXPECT_THROW(reference->setLayer(OdDbObjectId()), OdError);
  SmallDrawing other;
  EXPECT_THROW(reference->setLayer(other.addLayer(L"Walls")), OdError);
  EXPECT_EQ(reference->layerId(), walls);

  // An entity without database still gives the ids of the drawing that it was made for.
  const OdDbTextPtr text = OdDbText::createObject();
  text->setPropertiesFrom(reference);
  EXPECT_EQ(text->layerId(), walls);
  EXPECT_FALSE(text->textStyle().isNull());
}

TEST(Entities, OutliveTheirDrawingWithoutIds) {
  const OdDbTextPtr text = OdDbText::createObject();
  OdDbTextPtr resident = OdDbText::createObject();
  {
    SmallDrawing drawing;
    text->setLayer(drawing.addLayer(L"Walls"));
    resident->setLayer(text->layerId());
    drawing.block(drawing.db->getModelSpaceId())->appendOdDbEntity(resident);
  }
  for (const OdDbTextPtr& each : {text, resident}) {
    EXPECT_EQ(each->layer(), OdString(L"Walls"));
    EXPECT_TRUE(each->layerId().isNull());
  }
}

TEST_F(ReferenceTest, PlotStylesGoByNameAndAreCopiedAlong) {
  EXPECT_EQ(reference->plotStyleName(), OdString(L"ByLayer"));
  EXPECT_THROW(reference->setPlotStyleName(L"Fine"), OdError);
  const OdDbDictionaryPtr styles =
      drawing.db->getPlotStyleNameDictionaryId(true).safeOpenObject(OdDb::kForWrite);
  const OdDbObjectId fine = styles->setAt(L"Fine", OdDbDictionary::createObject());
  reference->setPlotStyleName(L"fine");
  const OdDbTextPtr text = OdDbText::createObject();
  text->setPropertiesFrom(reference);
  EXPECT_EQ(text->plotStyleName(), OdString(L"Fine"));
  OdDbObjectId id;
  EXPECT_EQ(text->getPlotStyleNameId(id), OdDb::kPlotStyleNameById);
  EXPECT_EQ(id, fine);
  text->setPlotStyleName(L"ByBlock");
  EXPECT_EQ(text->plotStyleName(), OdString(L"ByBlock"));
}

TEST_F(ReferenceTest, DefaultsComeFromTheHeader) {
  drawing.addLayer(L"Walls");
  drawing.setHeader("$CLAYER", {{8, "Walls"}});
  drawing.setHeader("$CECOLOR", {{62, 3}});
  drawing.setHeader("$CELTYPE", {{6, "Continuous"}});
  drawing.setHeader("$CELTSCALE", {{40, 2.0}});
  drawing.setHeader("$CELWEIGHT", {{370, 25}});
  drawing.setHeader("$TEXTSTYLE", {{7, "Standard"}});
  drawing.setHeader("$TEXTSIZE", {{40, 3.5}});
  const OdDbTextPtr text = OdDbText::createObject();
  text->setDatabaseDefaults(drawing.db);
  EXPECT_EQ(text->layer(), OdString(L"Walls"));
  EXPECT_EQ(text->colorIndex(), 3);
  EXPECT_EQ(text->linetype(), OdString(L"Continuous"));
  EXPECT_EQ(text->linetypeScale(), 2);
  EXPECT_EQ(text->lineWeight(), OdDb::kLnWt025);
  EXPECT_EQ(text->textStyleName(), OdString(L"Standard"));
  EXPECT_EQ(text->height(), 3.5);
  EXPECT_THROW(OdDbLine::createObject()->setDatabaseDefaults(), OdError);
}

TEST_F(ReferenceTest, UnknownEntityKeepsItsRecordNameAndRefusesToMove) {
  const OdDbObjectId id =
      drawing.addRaw("STRANGE", drawing.db->getModelSpaceId(),
                     {{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbStrange"}, {10, 1.0}, {8, "x"}});
  const OdDbEntityPtr entity = id.safeOpenObject(OdDb::kForWrite);
  EXPECT_TRUE(entity->isKindOf(OdDbProxyEntity::desc()));
  EXPECT_EQ(entity->transformBy(OdGeMatrix3d::scaling(2.0)), eNotApplicable);
  entity->setColorIndex(1);
  const OdDbEntityPtr copy = entity->clone();
  EXPECT_EQ(copy->dxfName(), "STRANGE");
  const OdDbObjectId appended = drawing.block(block)->appendOdDbEntity(copy);
  const std::vector<std::string> written = writtenGroups(appended);
  EXPECT_EQ(written.front(), "0:STRANGE");
  EXPECT_THAT(std::vector<std::string>(written.end() - 6, written.end()),
              ElementsAre("100:AcDbEntity", "8:0", "62:1", "100:AcDbStrange", "10:1.000000", "8:x"));
}

TEST_F(ReferenceTest, ViewportMovesWithItsSheetOnly) {
  const OdDbViewportPtr viewport = OdDbViewport::createObject();
  viewport->setCenterPoint(OdGePoint3d(5, 5, 0));
  viewport->setWidth(4);
  viewport->setHeight(2);
  viewport->setViewCenter(OdGePoint2d(7, 8));
  EXPECT_EQ(viewport->transformBy(OdGeMatrix3d::scaling(3.0)), eOk);
  EXPECT_EQ(viewport->centerPoint(), OdGePoint3d(15, 15, 0));
  EXPECT_EQ(viewport->width(), 12);
  EXPECT_EQ(viewport->viewCenter(), OdGePoint2d(7, 8));
  EXPECT_EQ(viewport->transformBy(OdGeMatrix3d::rotation(1, OdGeVector3d::kZAxis)), eCannotScaleNonUniformly);
  EXPECT_TRUE(viewport->isOn());
  viewport->setOn(false);
  EXPECT_FALSE(viewport->isOn());
}

} // namespace
