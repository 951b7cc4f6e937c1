// Undo, redo and transactions: whatever was changed, taking it back gives the same saved bytes as before.
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbIdMapping.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbLine.h"
#include "DbText.h"
#include "DbXrecord.h"
#include "support/drawings.h"
#include <gtest/gtest.h>
#include <random>

namespace {

using test::savedBytes;

OdDbBlockTableRecordPtr modelSpace(OdDbDatabase& db) {
  return db.getModelSpaceId().safeOpenObject(OdDb::kForWrite);
}

/// A drawing with one attributed block, and the operations that a user's commands are made of, chosen at
/// random.
class Workload {
public:
  explicit Workload(unsigned seed) : m_random(seed), m_db(OdDbDatabase::createBlank()) {
    const OdDbBlockTablePtr blocks = m_db->getBlockTableId().safeOpenObject(OdDb::kForWrite);
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName(L"DOOR");
    m_block = blocks->add(block);
    for (const wchar_t* tag : {L"NUMBER", L"WIDTH"}) {
      const OdDbAttributeDefinitionPtr definition = OdDbAttributeDefinition::createObject();
      definition->setDatabaseDefaults(m_db);
      definition->setTag(tag);
      block->appendOdDbEntity(definition);
    }
  }

  OdDbDatabase& db() { return *m_db; }

  void step() {
    static constexpr void (Workload::*kSteps[])() = {
        &Workload::addLine,  &Workload::addReference, &Workload::editEntity,   &Workload::eraseEntity,
        &Workload::addLayer, &Workload::setHeader,    &Workload::cloneEntity,  &Workload::swapEntities,
        &Workload::handOver, &Workload::extend,       &Workload::editAttribute};
    (this->*kSteps[number(std::size(kSteps))])();
  }

private:
  std::size_t number(std::size_t below) {
    return std::uniform_int_distribution<std::size_t>(0, below - 1)(m_random);
  }
  double real() { return static_cast<double>(number(100000)) / 8; }
  OdString name(const wchar_t* prefix) { return OdString().format(L"%s%d", prefix, ++m_names); }

  OdDbObjectId anyEntity() {
    std::vector<OdDbObjectId> ids;
    for (auto i = modelSpace(*m_db)->newIterator(); !i->done(); i->step()) ids.push_back(i->objectId());
    return ids.empty() ? OdDbObjectId() : ids[number(ids.size())];
  }

  void addLine() {
    const OdDbLinePtr line = OdDbLine::createObject();
    line->setDatabaseDefaults(m_db);
    line->setEndPoint(OdGePoint3d(real(), real(), 0));
    modelSpace(*m_db)->appendOdDbEntity(line);
  }

  void addReference() {
    const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setDatabaseDefaults(m_db);
    modelSpace(*m_db)->appendOdDbEntity(reference);
    reference->setBlockTableRecord(m_block);
    const OdDbAttributePtr attribute = OdDbAttribute::createObject();
    attribute->setDatabaseDefaults(m_db);
    attribute->setTag(L"NUMBER");
    reference->appendAttribute(attribute);
    attribute->setTextString(name(L"N"));
  }

  void editEntity() {
    const OdDbEntityPtr entity = anyEntity().openObject(OdDb::kForWrite);
    if (entity.isNull()) return;
    entity->setColorIndex(static_cast<int>(number(256)));
    if (const OdDbLinePtr line = OdDbLine::cast(entity); !line.isNull())
      line->setStartPoint(OdGePoint3d(real(), 1, 2));
  }

  void editAttribute() {
    const OdDbBlockReferencePtr reference = OdDbBlockReference::cast(anyEntity().openObject());
    if (reference.isNull()) return;
    for (auto i = reference->attributeIterator(); !i->done(); i->step())
      OdDbAttributePtr(i->entity(OdDb::kForWrite))->setTextString(name(L"edited "));
  }

  void eraseEntity() {
    const OdDbEntityPtr entity = anyEntity().openObject(OdDb::kForWrite);
    if (!entity.isNull()) entity->erase();
  }

  void addLayer() {
    const OdDbLayerTablePtr layers = m_db->getLayerTableId().safeOpenObject(OdDb::kForWrite);
    const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
    layer->setName(name(L"LAYER"));
    m_db->setCLAYER(layers->add(layer));
  }

  void setHeader() {
    m_db->setTEXTSTYLE(m_db->getTEXTSTYLE()),
        m_db->setCECOLOR(OdCmColor::fromIndex(1 + static_cast<int>(number(200))));
  }

  void cloneEntity() {
    const OdDbObjectId source = anyEntity();
    if (source.isNull()) return;
    OdDbIdMapping map;
    OdDbObjectIdArray ids;
    ids.append(source);
    m_db->deepCloneObjects(ids, m_db->getModelSpaceId(), map);
  }

  void swapEntities() {
    const OdDbLinePtr a = OdDbLine::cast(anyEntity().openObject(OdDb::kForWrite));
    const OdDbLinePtr b = OdDbLine::cast(anyEntity().openObject(OdDb::kForWrite));
    if (!a.isNull() && !b.isNull()) a->swapIdWith(b->objectId());
  }

  void handOver() {
    const OdDbLinePtr line = OdDbLine::cast(anyEntity().openObject(OdDb::kForWrite));
    if (line.isNull()) return;
    const OdDbTextPtr heir = OdDbText::createObject();
    heir->setDatabaseDefaults(m_db);
    heir->setTextString(name(L"heir "));
    line->handOverTo(heir);
  }

  void extend() {
    const OdDbEntityPtr entity = anyEntity().openObject(OdDb::kForWrite);
    if (entity.isNull()) return;
    const OdDbDictionaryPtr dictionary = entity->createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
    dictionary->setAt(name(L"KEY"), OdDbXrecord::createObject());
  }

  std::mt19937 m_random;
  OdDbDatabasePtr m_db;
  OdDbObjectId m_block;
  int m_names = 0;
};

class UndoWalk : public testing::TestWithParam<unsigned> {};

TEST_P(UndoWalk, EveryStateComesBackToTheByte) {
  Workload work(GetParam());
  OdDbDatabase& db = work.db();
  std::vector<std::string> states;
  constexpr int kRecords = 40;
  for (int record = 0; record < kRecords; ++record) {
    db.startUndoRecord();
    const std::string before = savedBytes(db);
    for (int i = 0; i < 3; ++i) work.step();
    if (savedBytes(db) != before) states.push_back(before);
  }
  states.push_back(savedBytes(db));

  ASSERT_GT(states.size(), 25u) << "most records change something";

  std::mt19937 random(GetParam());
  std::size_t at = states.size() - 1;
  for (int move = 0; move < 60; ++move) {
    const bool back = at > 0 && (at + 1 == states.size() || random() % 3 != 0);
    ASSERT_TRUE(back ? db.undo() : db.redo()) << "move " << move;
    at += back ? std::size_t(-1) : 1;
    ASSERT_EQ(savedBytes(db), states[at]) << "state " << at << " after move " << move;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, UndoWalk, testing::Range(1u, 9u));

OdDbObjectId addLine(OdDbDatabase& db) {
  const OdDbLinePtr line = OdDbLine::createObject();
  line->setDatabaseDefaults(&db);
  return modelSpace(db)->appendOdDbEntity(line);
}

TEST(UndoLog, MarksReachOverRecords) {
  const OdDbDatabasePtr db = OdDbDatabase::createBlank();
  const OdDbObjectId kept = addLine(*db);
  db->startUndoRecord();
  db->setUndoMark();
  db->startUndoRecord();
  const OdDbObjectId first = addLine(*db);
  db->startUndoRecord();
  const OdDbObjectId second = addLine(*db);
  EXPECT_TRUE(db->undoBack());
  EXPECT_TRUE(first.isErased());
  EXPECT_TRUE(second.isErased());
  EXPECT_FALSE(kept.isErased());
  EXPECT_FALSE(db->undoBack()) << "the only mark is used up";
}

TEST(UndoLog, AChangeForgetsWhatCouldBeRedone) {
  const OdDbDatabasePtr db = OdDbDatabase::createBlank();
  db->startUndoRecord();
  addLine(*db);
  db->undo();
  EXPECT_TRUE(db->hasRedo());
  addLine(*db);
  EXPECT_FALSE(db->redo());
}

TEST(Transactions, NestAndAbortIndependently) {
  const OdDbDatabasePtr db = OdDbDatabase::createBlank();
  db->startTransaction();
  const OdDbObjectId outer = addLine(*db);
  db->startTransaction();
  const OdDbObjectId aborted = addLine(*db);
  OdDbLinePtr(outer.safeOpenObject(OdDb::kForWrite))->setColorIndex(3);
  db->abortTransaction();
  db->startTransaction();
  const OdDbObjectId ended = addLine(*db);
  db->endTransaction();
  EXPECT_EQ(db->numActiveTransactions(), 1);
  EXPECT_TRUE(aborted.isErased());
  EXPECT_EQ(OdDbLinePtr(outer.safeOpenObject())->colorIndex(), 256);
  EXPECT_FALSE(ended.isErased());
  const std::string kept = savedBytes(*db);
  db->abortTransaction();
  EXPECT_TRUE(outer.isErased());
  EXPECT_TRUE(ended.isErased());
  EXPECT_NE(savedBytes(*db), kept);
  EXPECT_THROW(db->endTransaction(), OdError);
}

TEST(OpenModes, ChangesNeedWriteAndErasedObjectsStayShut) {
  const OdDbDatabasePtr db = OdDbDatabase::createBlank();
  const OdDbObjectId id = addLine(*db);
  const auto codeOf = [](auto action) {
    try {
      action();
    } catch (const OdError& error) {
      return error.code();
    }
    return eOk;
  };
  {
    const OdDbLinePtr line = id.safeOpenObject(OdDb::kForRead);
    EXPECT_EQ(codeOf([&] { line->setThickness(1); }), eNotOpenForWrite);
    line->upgradeOpen();
    EXPECT_EQ(codeOf([&] { line->setThickness(1); }), eOk);
    line->downgradeOpen();
    EXPECT_EQ(codeOf([&] { line->erase(); }), eNotOpenForWrite);
    line->upgradeOpen();
    line->erase();
  }
  EXPECT_EQ(codeOf([&] { id.safeOpenObject(); }), eWasErased);
  EXPECT_TRUE(id.openObject().isNull());
  EXPECT_FALSE(id.openObject(OdDb::kForRead, true).isNull());
  EXPECT_EQ(codeOf([] { OdDbObjectId().safeOpenObject(); }), eNullObjectId);
  EXPECT_EQ(codeOf([] { OdDbLine::createObject()->erase(); }), eNotInDatabase);
  EXPECT_EQ(codeOf([&] { OdDbTextPtr(id.openObject(OdDb::kForRead, true)); }), eNotThatKindOfClass);
}

TEST(Cloning, CopiesLeadToCopiesAndKeepForeignReferences) {
  const OdDbDatabasePtr db = OdDbDatabase::createBlank();
  const OdDbObjectId watcher = addLine(*db);
  const OdDbObjectId source = addLine(*db);
  {
    const OdDbEntityPtr entity = source.safeOpenObject(OdDb::kForWrite);
    entity->addPersistentReactor(watcher);
    const OdDbDictionaryPtr dictionary = entity->createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
    dictionary->setAt(L"DATA", OdDbXrecord::createObject());
  }
  OdDbIdMapping map;
  OdDbObjectIdArray ids;
  ids.append(source);
  db->deepCloneObjects(ids, db->getModelSpaceId(), map);
  EXPECT_EQ(map.size(), 3) << "the line, its extension dictionary, and the record in it";
  const OdDbEntityPtr copy = map.value(source).safeOpenObject();
  EXPECT_TRUE(copy->getPersistentReactors().isEmpty()) << "a reactor watches the source only";
  const OdDbDictionaryPtr copied = copy->extensionDictionary().safeOpenObject();
  EXPECT_TRUE(copied->ownerId() == copy->objectId());
  EXPECT_TRUE(copied->getAt(L"DATA") ==
              map.value(OdDbDictionaryPtr(
                            OdDbEntityPtr(source.safeOpenObject())->extensionDictionary().safeOpenObject())
                            ->getAt(L"DATA")));
}

TEST(Lifetime, ObjectsOutliveTheirDrawing) {
  OdDbDatabasePtr db = OdDbDatabase::createBlank();
  const OdDbLayerTableRecordPtr layer = db->getCLAYER().safeOpenObject();
  db.release();
  EXPECT_EQ(layer->getName(), L"0");
  EXPECT_FALSE(layer->isDBRO());
}

} // namespace
