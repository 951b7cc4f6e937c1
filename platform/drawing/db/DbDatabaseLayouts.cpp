// The spaces of a drawing, its layouts, and the dictionaries that the library itself needs.
#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbDictionaryWithDefault.h"
#include "DbLayout.h"
#include "DbPlaceHolder.h"
#include "DbStore.h"

namespace {

// The names of the only two pages in drawings from before there were layouts.
const OdChar* const kModelPage = L"Model";
const OdChar* const kSheetPage = L"Layout1";
const OdChar* const kPaperSpace = L"*Paper_Space";

} // namespace

OdDbObjectId OdDbDatabase::getModelSpaceId() const { return OdDbObjectId(m_store->space(false)); }
OdDbObjectId OdDbDatabase::getPaperSpaceId() const { return OdDbObjectId(m_store->space(true)); }

OdDbObjectId OdDbDatabase::getActiveLayoutBTRId() const {
  const OdDbObjectId paper = getTILEMODE() ? OdDbObjectId() : getPaperSpaceId();
  return paper.isNull() ? getModelSpaceId() : paper;
}

// --- dictionaries ---

OdDbObjectId OdDbDatabase::getNamedObjectsDictionaryId() const {
  for (OdDbStub* stub = store().objects.first; stub; stub = stub->next)
    if (!stub->owner && stub->dxfName() == "DICTIONARY" && !stub->isErased()) return OdDbObjectId(stub);
  return {};
}

namespace {

/// The dictionary under a name of the named objects dictionary; null when there is none.
OdDbObjectId namedDictionaryId(const OdDbDatabase& database, const OdChar* name) {
  const OdDbDictionaryPtr root = OdDbDictionary::cast(database.getNamedObjectsDictionaryId().openObject());
  return root.isNull() ? OdDbObjectId() : root->getAt(name);
}

void addNamedDictionary(OdDbDatabase& database, const OdChar* name, OdDbDictionary* dictionary) {
  if (database.getNamedObjectsDictionaryId().isNull())
    database.addOdDbObject(OdDbDictionary::createObject(), OdDbObjectId());
  const OdDbDictionaryPtr root = database.getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite);
  root->setAt(name, dictionary);
}

} // namespace

OdDbObjectId OdDbDatabase::getLayoutDictionaryId(bool createIfNotFound) {
  const OdChar* const name = L"ACAD_LAYOUT";
  if (createIfNotFound && namedDictionaryId(*this, name).isNull())
    addNamedDictionary(*this, name, OdDbDictionary::createObject());
  return namedDictionaryId(*this, name);
}

OdDbObjectId OdDbDatabase::getPlotStyleNameDictionaryId(bool createIfNotFound) {
  const OdChar* const name = L"ACAD_PLOTSTYLENAME";
  if (createIfNotFound && namedDictionaryId(*this, name).isNull()) {
    const OdDbDictionaryWithDefaultPtr styles = OdDbDictionaryWithDefault::createObject();
    addNamedDictionary(*this, name, styles);
    styles->setDefaultId(styles->setAt(L"Normal", OdDbPlaceHolder::createObject()));
  }
  return namedDictionaryId(*this, name);
}

// --- layouts ---

namespace {

/// The first layout of the dictionary of layouts that is wanted; null when none is.
template <class IsWanted>
OdDbLayoutPtr findLayout(const OdDbDatabase& database, const IsWanted& isWanted) {
  const OdDbDictionaryPtr layouts =
      OdDbDictionary::cast(namedDictionaryId(database, L"ACAD_LAYOUT").openObject());
  if (layouts.isNull()) return {};
  for (OdDbDictionaryIteratorPtr entry = layouts->newIterator(); !entry->done(); entry->next()) {
    OdDbLayoutPtr layout = OdDbLayout::cast(entry->getObject());
    if (!layout.isNull() && isWanted(*layout)) return layout;
  }
  return {};
}

/// The layout that shows a block record; the link between the two is missing in damaged drawings.
OdDbLayoutPtr layoutOf(const OdDbDatabase& database, OdDbObjectId block) {
  const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::cast(block.openObject());
  if (record.isNull()) return {};
  OdDbLayoutPtr linked = OdDbLayout::cast(record->getLayoutId().openObject());
  if (!linked.isNull()) return linked;
  return findLayout(database,
                    [&](const OdDbLayout& layout) { return layout.getBlockTableRecordId() == block; });
}

/// Files know which sheet was last current by its block record being the one named *Paper_Space.
void makePaperSpace(OdDbDatabase& database, OdDbObjectId block) {
  const OdDbObjectId current = database.getPaperSpaceId();
  if (block == current) return;
  const OdDbBlockTableRecordPtr record = block.safeOpenObject(OdDb::kForWrite);
  if (current.isNull()) {
    record->setName(kPaperSpace);
    return;
  }
  const OdDbBlockTableRecordPtr old = current.safeOpenObject(OdDb::kForWrite);
  record->swapNameWith(*old);
}

/// Newer files name the current page once more, in a dictionary of variables.
void noteCurrentPage(OdDbDatabase& database, const OdString& name) {
  const OdDbSubclass section{"DictionaryVariables", {}};
  constexpr int kValueCode = 1;
  const auto variables =
      OdDbDictionary::cast(namedDictionaryId(database, L"AcDbVariableDictionary").openObject());
  if (variables.isNull()) return;
  const OdDbObjectPtr page = variables->getAt(L"CTAB", OdDb::kForWrite);
  if (page.isNull()) return;
  const int value = odDbGroups::find(page->groups(), section, kValueCode);
  if (value < 0) return;
  OdDbGroupList& groups = page->mutableGroups();
  groups[value] = groups.makeText(kValueCode, name);
}

} // namespace

void OdDbDatabase::setCurrentLayout(const OdString& name) {
  const OdDbLayoutPtr layout = findLayout(
      *this, [&](const OdDbLayout& candidate) { return candidate.getLayoutName().iCompare(name) == 0; });
  const OdDbObjectId block = layout.isNull() ? OdDbObjectId() : layout->getBlockTableRecordId();
  const bool isModel = block.isNull() ? name.iCompare(kModelPage) == 0 : block == getModelSpaceId();
  if (!isModel) {
    const bool isOnlySheet = block.isNull() && name.iCompare(kSheetPage) == 0;
    const OdDbObjectId sheet = isOnlySheet ? getPaperSpaceId() : block;
    if (sheet.isErased()) throw OdError(eKeyNotFound);
    makePaperSpace(*this, sheet);
  }
  setTILEMODE(isModel);
  m_activeViewport = {};
  noteCurrentPage(*this, currentLayoutName());
}

OdString OdDbDatabase::currentLayoutName() const {
  const OdDbLayoutPtr layout = layoutOf(*this, getActiveLayoutBTRId());
  if (!layout.isNull()) return layout->getLayoutName();
  return getTILEMODE() ? kModelPage : kSheetPage;
}

// --- viewports ---

OdDbObjectId OdDbDatabase::sheetViewportId() const {
  return getTILEMODE() ? OdDbObjectId() : odDbSheetViewportOf(getPaperSpaceId());
}

OdDbObjectId OdDbDatabase::activeViewportId() const {
  if (getTILEMODE()) return {};
  const bool entered =
      !m_activeViewport.isErased() && m_activeViewport.stub()->owner == getPaperSpaceId().stub();
  return entered ? m_activeViewport : sheetViewportId();
}

void OdDbDatabase::setActiveViewportId(OdDbObjectId viewport) {
  if (!viewport.isNull() && !odDbViewportsOf(getActiveLayoutBTRId()).contains(viewport))
    throw OdError(eInvalidInput, L"Only a viewport of the current layout can be made the active one.");
  m_activeViewport = viewport;
}
