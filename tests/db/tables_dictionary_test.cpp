// Dictionaries, what they hold, and the dictionaries that objects own.
#include "DbDictionaryWithDefault.h"
#include "DbPlaceHolder.h"
#include "DbXrecord.h"
#include "tables_drawing.h"
#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

std::vector<std::wstring> entriesOf(const OdDbDictionary& dictionary) {
  std::vector<std::wstring> names;
  for (auto entry = dictionary.newIterator(); !entry->done(); entry->next())
    names.push_back(entry->name().str());
  return names;
}

class Dictionary : public testing::Test {
protected:
  SmallDrawing drawing;
  OdDbDictionaryPtr dictionary = OdDbDictionary::createObject();
  Dictionary() {
    drawing.root()->setAt(L"TEST", dictionary);
    for (const wchar_t* name : {L"Zoe", L"\u00C4ther", L"alpha"}) put(name);
    drawing.db->startUndoRecord();
  }
  OdDbObjectId put(const wchar_t* name) { return dictionary->setAt(name, OdDbPlaceHolder::createObject()); }
};

} // namespace

TEST_F(Dictionary, FindsNamesWithoutRegardToCaseAndKeepsTheirOrder) {
  EXPECT_THAT(entriesOf(*dictionary), ElementsAre(L"Zoe", L"\u00C4ther", L"alpha"));
  const OdDbObjectId id = dictionary->getAt(L"\u00E4THER");
  EXPECT_EQ(dictionary->nameAt(id), OdString(L"\u00C4ther"));
  EXPECT_EQ(id.openObject()->ownerId(), dictionary->objectId());
  EXPECT_THAT(id.openObject()->getPersistentReactors(), ElementsAre(dictionary->objectId()));
  EXPECT_TRUE(dictionary->getAt(L"beta").isNull());
  EXPECT_TRUE(dictionary->nameAt(drawing.db->getModelSpaceId()).isEmpty());
}

TEST_F(Dictionary, ReplacingErasesTheOldObjectAndKeepsItsPlace) {
  const OdDbObjectId old = dictionary->getAt(L"ZOE");
  const OdDbObjectId fresh = put(L"zoe");
  EXPECT_TRUE(old.isErased());
  EXPECT_EQ(dictionary->getAt(L"Zoe"), fresh);
  EXPECT_EQ(dictionary->nameAt(fresh), OdString(L"Zoe"));
  EXPECT_THAT(entriesOf(*dictionary), ElementsAre(L"Zoe", L"\u00C4ther", L"alpha"));
  EXPECT_EQ(dictionary->setAt(L"ZOE", fresh.safeOpenObject(OdDb::kForWrite)), fresh);
  EXPECT_FALSE(fresh.isErased());
}

TEST_F(Dictionary, ErasedObjectsAreNeitherFoundNorWritten) {
  const OdDbObjectId id = dictionary->getAt(L"alpha");
  id.safeOpenObject(OdDb::kForWrite)->erase();
  EXPECT_FALSE(dictionary->has(L"alpha"));
  EXPECT_EQ(dictionary->numEntries(), 2u);
  EXPECT_THAT(entriesOf(*dictionary), ElementsAre(L"Zoe", L"\u00C4ther"));
  EXPECT_THAT(writtenGroups(dictionary->objectId()), testing::Not(testing::Contains("3:alpha")));
  id.safeOpenObject(OdDb::kForWrite, true)->erase(false);
  EXPECT_EQ(dictionary->getAt(L"alpha"), id);
  EXPECT_THAT(writtenGroups(dictionary->objectId()), testing::Contains("3:alpha"));
}

TEST_F(Dictionary, ChangesAreTakenBackAndBroughtBack) {
  const std::vector<std::string> before = writtenGroups(dictionary->objectId());
  const OdDbObjectId zoe = dictionary->getAt(L"zoe");
  put(L"beta");
  EXPECT_EQ(dictionary->remove(L"ZOE"), zoe);
  EXPECT_FALSE(zoe.isErased());
  EXPECT_TRUE(zoe.openObject()->ownerId().isNull());
  dictionary->setName(L"alpha", L"Omega");
  const std::vector<std::string> after = writtenGroups(dictionary->objectId());
  EXPECT_THAT(entriesOf(*dictionary), ElementsAre(L"\u00C4ther", L"Omega", L"beta"));

  drawing.db->undo();
  EXPECT_EQ(writtenGroups(dictionary->objectId()), before);
  EXPECT_EQ(dictionary->getAt(L"zoe"), zoe);
  EXPECT_FALSE(dictionary->has(L"beta"));
  EXPECT_EQ(zoe.openObject()->ownerId(), dictionary->objectId());
  drawing.db->redo();
  EXPECT_EQ(writtenGroups(dictionary->objectId()), after);
  EXPECT_TRUE(dictionary->has(L"omega"));
}

TEST_F(Dictionary, RefusesNamesThatAreTakenOrEmpty) {
  EXPECT_THROW(dictionary->setName(L"alpha", L"ZOE"), OdError);
  EXPECT_THROW(dictionary->setName(L"nobody", L"x"), OdError);
  EXPECT_THROW(dictionary->setName(L"alpha", L""), OdError);
  EXPECT_THROW(put(L""), OdError);
  dictionary->setName(L"alpha", L"ALPHA");
  EXPECT_THAT(entriesOf(*dictionary), ElementsAre(L"Zoe", L"\u00C4ther", L"ALPHA"));
  dictionary->getAt(L"zoe", OdDb::kForWrite)->erase();
  dictionary->setName(L"alpha", L"Zoe"); // the name of an erased object is free
  EXPECT_THAT(entriesOf(*dictionary), ElementsAre(L"\u00C4ther", L"Zoe"));
  EXPECT_TRUE(dictionary->has(L"zoe"));
}

TEST_F(Dictionary, MayBeChangedWhileItIsWalked) {
  std::vector<std::wstring> met;
  for (auto entry = dictionary->newIterator(); !entry->done(); entry->next()) {
    met.push_back(entry->name().str());
    if (met.size() == 1) {
      dictionary->getAt(L"\u00E4ther", OdDb::kForWrite)->erase();
      put(L"late");
    }
  }
  EXPECT_THAT(met, ElementsAre(L"Zoe", L"alpha"));
}

TEST(DamagedDictionary, FirstOfTwoEqualNamesCountsAndDanglingEntriesStayInTheFile) {
  SmallDrawing drawing;
  const OdDbObjectId one =
      drawing.addRaw("ACDBPLACEHOLDER", drawing.db->getNamedObjectsDictionaryId(), {}, false);
  const OdDbObjectId two =
      drawing.addRaw("ACDBPLACEHOLDER", drawing.db->getNamedObjectsDictionaryId(), {}, false);
  const OdDbObjectId id = drawing.addRaw("DICTIONARY", drawing.db->getNamedObjectsDictionaryId(),
                                         {{100, "AcDbDictionary"},
                                          {3, "Key"},
                                          {350, one},
                                          {3, "KEY"},
                                          {350, two},
                                          {3, "Lost"},
                                          {350, OdDbObjectId()}},
                                         false);
  const OdDbDictionaryPtr dictionary = id.safeOpenObject(OdDb::kForWrite);
  EXPECT_EQ(dictionary->getAt(L"key"), one);
  EXPECT_FALSE(dictionary->has(L"Lost"));
  dictionary->remove(L"key");
  EXPECT_EQ(dictionary->getAt(L"key"), two);
  EXPECT_THAT(writtenGroups(id), testing::Contains("3:Lost"));
}

TEST(DictionaryWithDefault, GivesItsDefaultForUnknownNames) {
  SmallDrawing drawing;
  const OdDbDictionaryWithDefaultPtr styles = drawing.db->getPlotStyleNameDictionaryId().safeOpenObject();
  const OdDbObjectId normal = styles->getAt(L"NORMAL");
  EXPECT_FALSE(normal.isNull());
  EXPECT_EQ(styles->getAt(L"Thick"), normal);
  EXPECT_FALSE(styles->has(L"Thick"));
  EXPECT_EQ(drawing.db->getPlotStyleNameDictionaryId(), styles->objectId()) << "made only once";
}

// --- extension dictionaries ---

TEST(ExtensionDictionary, LivesWithItsObject) {
  SmallDrawing drawing;
  const OdDbObjectId id = drawing.addLayer(L"Walls");
  const OdDbObjectPtr layer = id.safeOpenObject(OdDb::kForWrite);
  const std::vector<std::string> before = writtenGroups(id);
  drawing.db->startUndoRecord();
  const OdDbObjectId extension = layer->createExtensionDictionary();
  EXPECT_EQ(layer->createExtensionDictionary(), extension);
  EXPECT_EQ(writtenGroups(id)[2], "102:{ACAD_XDICTIONARY");
  EXPECT_EQ(extension.openObject()->ownerId(), id);

  OdDbDictionaryPtr dictionary = extension.safeOpenObject(OdDb::kForWrite);
  dictionary->setAt(L"DATA", OdDbXrecord::createObject());
  EXPECT_FALSE(layer->releaseExtensionDictionary()) << "holds something";
  dictionary->getAt(L"DATA", OdDb::kForWrite)->erase();
  EXPECT_TRUE(layer->releaseExtensionDictionary());
  EXPECT_TRUE(layer->extensionDictionary().isNull());
  EXPECT_TRUE(extension.isErased());
  EXPECT_EQ(writtenGroups(id), before);

  const OdDbObjectId second = layer->createExtensionDictionary();
  EXPECT_NE(second, extension);
  drawing.db->undo();
  EXPECT_EQ(writtenGroups(id), before);
  EXPECT_TRUE(second.isErased());
  drawing.db->redo();
  EXPECT_EQ(layer->extensionDictionary(), second);
  EXPECT_FALSE(second.isErased());
}

TEST(ExtensionDictionary, IsErasedAndRestoredWithItsObject) {
  SmallDrawing drawing;
  const OdDbObjectPtr layer = drawing.addLayer(L"Walls").safeOpenObject(OdDb::kForWrite);
  const OdDbObjectId extension = layer->createExtensionDictionary();
  layer->erase();
  EXPECT_TRUE(extension.isErased());
  layer->erase(false);
  EXPECT_FALSE(extension.isErased());
  EXPECT_EQ(layer->extensionDictionary(), extension);
}

TEST(ExtensionDictionary, NeedsADatabase) {
  EXPECT_THROW(OdDbLayerTableRecord::createObject()->createExtensionDictionary(), OdError);
}

// --- data of applications ---

namespace {

OdResBufPtr chainOf(std::initializer_list<OdResBufPtr> items) {
  OdResBufPtr head;
  for (const OdResBufPtr& item : items) {
    if (head.isNull())
      head = item;
    else
      head->last()->setNext(item);
  }
  return head;
}

std::vector<int> codesOf(const OdResBuf* item) {
  std::vector<int> codes;
  for (; item; item = item->next()) codes.push_back(item->restype());
  return codes;
}

} // namespace

TEST(Xrecord, KeepsValuesOfEveryKindAndReplacesThemAll) {
  SmallDrawing drawing;
  const OdDbXrecordPtr record = OdDbXrecord::createObject();
  drawing.root()->setAt(L"DATA", record);
  EXPECT_TRUE(record->rbChain().isNull());
  OdResBufPtr chain = chainOf({OdResBuf::newRb(1, OdString(L"T\u00FCr")),
                               OdResBuf::newRb(10, OdGePoint3d(1, 2, 3)), OdResBuf::newRb(40, 2.5),
                               OdResBuf::newRb(280, OdInt64{7}), OdResBuf::newRb(102, OdString(L"{A")),
                               OdResBuf::newRb(330, record->handle()), OdResBuf::newRb(290, OdInt64{1})});
  record->setFromRbChain(chain);
  const OdResBufPtr read = record->rbChain();
  EXPECT_THAT(codesOf(read), ElementsAre(1, 10, 40, 280, 102, 330, 290));
  EXPECT_EQ(read->getString(), OdString(L"T\u00FCr"));
  EXPECT_EQ(read->next()->getPoint3d(), OdGePoint3d(1, 2, 3));
  EXPECT_EQ(read->last()->getInt64(), 1);

  drawing.db->startUndoRecord();
  for (const OdResBufPtr& wrong : {OdResBuf::newRb(40, OdString(L"x")), OdResBuf::newRb(1, 1.0),
                                   OdResBuf::newRb(20, OdGePoint3d()), OdResBuf::newRb(70)})
    EXPECT_THROW(record->setFromRbChain(wrong), OdError) << wrong->restype();
  EXPECT_THAT(codesOf(record->rbChain()), ElementsAre(1, 10, 40, 280, 102, 330, 290));
  record->setFromRbChain(nullptr);
  EXPECT_TRUE(record->rbChain().isNull());
  EXPECT_THAT(writtenGroups(record->objectId()), testing::Contains("280:1"));
  drawing.db->undo();
  EXPECT_EQ(record->rbChain()->next()->getPoint3d(), OdGePoint3d(1, 2, 3));
}

TEST(Xrecord, TakesMoreTextsThanItHeldBefore) {
  SmallDrawing drawing;
  const OdDbXrecordPtr record = OdDbXrecord::createObject();
  drawing.root()->setAt(L"DATA", record);
  constexpr int kCount = 500;
  OdResBufPtr head = OdResBuf::newRb(1, OdString(L"0"));
  OdResBufPtr tail = head;
  for (int i = 1; i < kCount; ++i)
    tail = tail->setNext(OdResBuf::newRb(1, OdString::fromUtf8(std::to_string(i))));
  record->setFromRbChain(head);
  int i = 0;
  const OdResBufPtr read = record->rbChain();
  for (const OdResBuf* item = read; item; item = item->next(), ++i)
    EXPECT_EQ(item->getString().toUtf8(), std::to_string(i));
  EXPECT_EQ(i, kCount);
}

TEST(ExtendedData, IsKeptByApplication) {
  SmallDrawing drawing;
  const OdDbObjectId id = drawing.addPoint(drawing.db->getModelSpaceId());
  const OdDbObjectPtr object = id.safeOpenObject(OdDb::kForWrite);
  object->setXData(chainOf({OdResBuf::newRb(1001, OdString(L"ONE")), OdResBuf::newRb(1000, OdString(L"a")),
                            OdResBuf::newRb(1001, OdString(L"TWO")),
                            OdResBuf::newRb(1010, OdGePoint3d(1, 2, 3)), OdResBuf::newRb(1070, OdInt64{5})}));
  const OdDbSymbolTablePtr applications = drawing.db->getRegAppTableId().safeOpenObject();
  EXPECT_TRUE(applications->has(L"one"));
  EXPECT_THAT(codesOf(object->xData()), ElementsAre(1001, 1000, 1001, 1010, 1070));
  EXPECT_THAT(codesOf(object->xData(L"two")), ElementsAre(1001, 1010, 1070));
  EXPECT_TRUE(object->xData(L"three").isNull());

  drawing.db->startUndoRecord();
  object->setXData(chainOf({OdResBuf::newRb(1001, OdString(L"one")), OdResBuf::newRb(1071, OdInt64{9})}));
  EXPECT_THAT(codesOf(object->xData()), ElementsAre(1001, 1071, 1001, 1010, 1070));
  object->setXData(OdResBuf::newRb(1001, OdString(L"TWO")));
  EXPECT_THAT(codesOf(object->xData()), ElementsAre(1001, 1071));
  EXPECT_THROW(object->setXData(OdResBuf::newRb(1000, OdString(L"a"))), OdError);
  EXPECT_THROW(object->setXData(chainOf({OdResBuf::newRb(1001, OdString(L"X")), OdResBuf::newRb(40, 1.0)})),
               OdError);
  drawing.db->undo();
  EXPECT_THAT(codesOf(object->xData()), ElementsAre(1001, 1000, 1001, 1010, 1070));
}

TEST(PersistentReactors, StandBetweenExtensionDictionaryAndOwner) {
  SmallDrawing drawing;
  const OdDbObjectId id = drawing.addPoint(drawing.db->getModelSpaceId());
  const OdDbObjectPtr object = id.safeOpenObject(OdDb::kForWrite);
  const std::vector<std::string> before = writtenGroups(id);
  const OdDbObjectId one = drawing.db->getModelSpaceId();
  const OdDbObjectId two = drawing.db->getPaperSpaceId();
  for (const OdDbObjectId& reactor : {one, two, one}) object->addPersistentReactor(reactor);
  EXPECT_THAT(object->getPersistentReactors(), ElementsAre(one, two));
  object->createExtensionDictionary();
  std::vector<std::string> written = writtenGroups(id);
  written.resize(9);
  EXPECT_THAT(written,
              ElementsAre("0:POINT", HasSubstr("5:"), "102:{ACAD_XDICTIONARY", HasSubstr("360:"), "102:}",
                          "102:{ACAD_REACTORS", HasSubstr("330:"), HasSubstr("330:"), "102:}"));
  object->releaseExtensionDictionary();
  object->removePersistentReactor(one);
  EXPECT_THAT(object->getPersistentReactors(), ElementsAre(two));
  object->removePersistentReactor(two);
  EXPECT_EQ(writtenGroups(id), before);
}
