// Block records: their entities, the order of drawing, references to them.
#include "DbSortentsTable.h"
#include "tables_drawing.h"
#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

std::vector<OdDbObjectId> walk(const OdDbBlockTableRecord& block, bool forward, bool skipDeleted,
                               bool sorted) {
  std::vector<OdDbObjectId> met;
  for (auto entity = block.newIterator(forward, skipDeleted, sorted); !entity->done();
       entity->step(forward, skipDeleted))
    met.push_back(entity->objectId());
  return met;
}

} // namespace

TEST(BlockTableRecord, WalksInStoredOrderOverWhatIsAppendedAndErased) {
  SmallDrawing drawing;
  const OdDbBlockTableRecordPtr space = drawing.block(drawing.db->getModelSpaceId());
  std::vector<OdDbObjectId> ids(4);
  for (OdDbObjectId& id : ids) id = drawing.addPoint(space->objectId());
  std::vector<OdDbObjectId> met;
  auto entity = space->newIterator();
  for (; !entity->done(); entity->step()) {
    met.push_back(entity->objectId());
    if (met.size() != 2) continue;
    ids[1].safeOpenObject(OdDb::kForWrite)->erase();
    ids[2].safeOpenObject(OdDb::kForWrite)->erase();
    EXPECT_TRUE(entity->entity().isNull());
    EXPECT_FALSE(entity->entity(OdDb::kForRead, true).isNull());
    ids.push_back(drawing.addPoint(space->objectId()));
  }
  EXPECT_THAT(met, ElementsAre(ids[0], ids[1], ids[3], ids[4]));
  EXPECT_THAT(walk(*space, false, true, false), ElementsAre(ids[4], ids[3], ids[0]));
  EXPECT_THAT(walk(*space, true, false, false), testing::ElementsAreArray(ids));
  EXPECT_TRUE(entity->seek(ids[3]));
  entity->step(false, false);
  EXPECT_EQ(entity->objectId(), ids[2]);
  EXPECT_FALSE(entity->seek(drawing.db->getModelSpaceId()));
  EXPECT_EQ(entity->objectId(), ids[2]);
}

TEST(BlockTableRecord, SortedWalkFollowsTheDrawingOrder) {
  SmallDrawing drawing;
  const OdDbBlockTableRecordPtr space = drawing.block(drawing.db->getModelSpaceId());
  std::vector<OdDbObjectId> ids(4);
  for (OdDbObjectId& id : ids) id = drawing.addPoint(space->objectId());
  EXPECT_THAT(walk(*space, true, true, true), testing::ElementsAreArray(ids)) << "no order of its own";

  // The last is drawn first and the first last; the others keep the place that their handles give them.
  const OdDbDictionaryPtr extension = space->createExtensionDictionary().safeOpenObject(OdDb::kForWrite);
  extension->setAt(L"ACAD_SORTENTS", OdDbSortentsTable::createObject());
  const OdDbObjectPtr order = extension->getAt(L"ACAD_SORTENTS", OdDb::kForWrite);
  OdDbGroupList& groups = order->mutableGroups();
  groups[odDbGroups::find(groups, *order->schema().back(), 330)].handle = space->handle();
  for (const auto& [entity, key] : {std::pair(ids[0], ids[3]), std::pair(ids[3], ids[0])}) {
    groups.append(OdDbGroup::ofHandle(331, entity.getHandle()));
    groups.append(OdDbGroup::ofHandle(5, key.getHandle()));
  }
  EXPECT_THAT(walk(*space, true, true, true), ElementsAre(ids[3], ids[1], ids[2], ids[0]));
  EXPECT_THAT(walk(*space, false, true, true), ElementsAre(ids[0], ids[2], ids[1], ids[3]));
  EXPECT_THAT(walk(*space, true, true, false), testing::ElementsAreArray(ids));

  std::vector<OdDbObjectId> met;
  for (auto entity = space->newIterator(true, true, true); !entity->done(); entity->step()) {
    met.push_back(entity->objectId());
    if (met.size() > 1) continue;
    ids[1].safeOpenObject(OdDb::kForWrite)->erase();
    drawing.addPoint(space->objectId());
  }
  EXPECT_THAT(met, ElementsAre(ids[3], ids[2], ids[0]));
  extension->erase();
  EXPECT_THAT(walk(*space, true, false, true).front(), ids[0]);
}

TEST(BlockTableRecord, NewBlockGetsItsBlockAndEndblk) {
  SmallDrawing drawing;
  drawing.db->startUndoRecord();
  const OdDbObjectId id = drawing.addBlock(L"Door");
  const auto ends = drawing.store().blockEnds.at(id.stub());
  EXPECT_EQ(OdDbObjectId(ends.begin).openObject()->ownerId(), id);
  EXPECT_EQ(OdDbObjectId(ends.end).openObject()->dxfName(), "ENDBLK");
  EXPECT_EQ(drawing.store().blockOrder.back(), id.stub());
  drawing.block(id)->setOrigin(OdGePoint3d(1, 2, 3));
  EXPECT_EQ(drawing.block(id)->origin(), OdGePoint3d(1, 2, 3));
  drawing.db->undo();
  EXPECT_TRUE(id.isErased());
  EXPECT_TRUE(OdDbObjectId(ends.begin).isErased());
  drawing.db->redo();
  EXPECT_EQ(drawing.block(id)->origin(), OdGePoint3d(1, 2, 3));
}

TEST(BlockTableRecord, KindsOfBlocksGoByTheirNames) {
  SmallDrawing drawing;
  struct Case {
    const wchar_t* name;
    bool layout;
    bool anonymous;
  };
  for (const Case& c :
       {Case{L"*MODEL_SPACE2", false, true}, Case{L"*PAPER_SPACE7", true, false},
        Case{L"$PAPER_SPACE", true, false}, Case{L"*U14", false, true}, Case{L"Door", false, false}}) {
    const OdDbBlockTableRecordPtr block = drawing.block(drawing.addBlock(c.name));
    EXPECT_EQ(block->isLayout(), c.layout) << OdString(c.name).toUtf8();
    EXPECT_EQ(block->isAnonymous(), c.anonymous) << OdString(c.name).toUtf8();
  }
}

TEST(BlockTableRecord, AttributeDefinitionsAreCountedNotBelieved) {
  SmallDrawing drawing;
  const OdDbBlockTableRecordPtr block = drawing.block(drawing.addBlock(L"Door"));
  EXPECT_FALSE(block->hasAttributeDefinitions());
  const OdDbObjectId id = drawing.addRaw("ATTDEF", block->objectId(), {{100, "AcDbEntity"}});
  EXPECT_TRUE(block->hasAttributeDefinitions());
  id.safeOpenObject(OdDb::kForWrite)->erase();
  EXPECT_FALSE(block->hasAttributeDefinitions());
}

TEST(BlockTableRecord, FindsItsReferencesDirectAndNested) {
  SmallDrawing drawing;
  const OdDbObjectId space = drawing.db->getModelSpaceId();
  const OdDbObjectId leaf = drawing.addBlock(L"Kn\u00E4uf");
  const OdDbObjectId door = drawing.addBlock(L"Door");
  const OdDbObjectId inDoor = drawing.addReference(door, "KN\xC3\x84UF");
  const OdDbObjectId inSpace = drawing.addReference(space, "Kn\xC3\xA4uf");
  const OdDbObjectId array =
      drawing.addRaw("INSERT", space, {{100, "AcDbMInsertBlock"}, {2, "kn\xC3\xA4uf"}});
  const OdDbObjectId doorInSpace = drawing.addReference(drawing.db->getPaperSpaceId(), "door");
  const OdDbObjectId doorInItself = drawing.addReference(door, "Door");
  drawing.addReference(space, "missing");
  drawing.addReference(space, "Door").safeOpenObject(OdDb::kForWrite)->erase();

  OdDbObjectIdArray direct;
  drawing.block(leaf)->getBlockReferenceIds(direct);
  EXPECT_THAT(direct, testing::UnorderedElementsAre(inDoor, inSpace, array));
  OdDbObjectIdArray all;
  drawing.block(leaf)->getBlockReferenceIds(all, false);
  EXPECT_THAT(all, testing::UnorderedElementsAre(inDoor, inSpace, array, doorInSpace, doorInItself));
}
