#include "ReleaseUpgrade.h"
#include "AuditNames.h"
#include "ClassRecords.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbStoreWalk.h"
#include "DxfFileFiler.h"
#include "DxfOutput.h"
#include "DxfStoreWriter.h"
#include "HeaderUpgrade.h"
#include "RecordUpgrade.h"
#include <algorithm>
#include <iterator>

namespace {

constexpr int kNameCode = 2;
constexpr int kEntryCode = 3;
constexpr int kSoftEntry = 350;
constexpr int kHardEntry = 360;
constexpr int kFirstXDataCode = 1001;

bool isDictionary(const OdDbStub* stub) {
  return stub->dxfName() == "DICTIONARY" || stub->dxfName() == "ACDBDICTIONARYWDFLT";
}

/// An entry of a dictionary: the index of its name, and what it leads to.
struct Entry {
  int index;
  OdString name;
  OdDbStub* object;
};

std::vector<Entry> entriesOf(const OdDbStub* dictionary) {
  std::vector<Entry> entries;
  const OdDbGroupListPtr groups = dictionary->content();
  for (int i = 0; i + 1 < groups->size(); ++i) {
    const OdDbGroup& value = (*groups)[i + 1];
    if ((*groups)[i].code == kEntryCode && (value.code == kSoftEntry || value.code == kHardEntry))
      entries.push_back({i, groups->text(i), dictionary->store->find(value.handle)});
  }
  return entries;
}

/// Replaces the groups of an object that nobody undoes.
void replaceGroups(OdDbStub* stub, const OdDbGroupListPtr& groups) {
  OdDbStubState state = stub->state();
  state.groups = groups;
  state.raw = nullptr;
  state.rawSize = 0;
  stub->exchange(state);
}

OdDbGroupListPtr copyOf(const OdDbStub* stub) {
  return OdDbGroupListPtr(new OdDbGroupList(*stub->content()));
}

/// Inserts groups at the end of the sections, before extended data.
void addGroups(OdDbGroupList& groups, std::initializer_list<OdDbGroup> added) {
  const auto end = std::find_if(groups.items.begin(), groups.items.end(),
                                [](const OdDbGroup& group) { return group.code >= kFirstXDataCode; });
  groups.items.insert(end, added);
}

/// Sets the first group of a code, or adds it.
void setGroup(OdDbGroupList& groups, const OdDbGroup& value) {
  const auto at = std::find_if(groups.items.begin(), groups.items.end(), [&](const OdDbGroup& group) {
    return group.code == value.code && !group.isIdentity();
  });
  if (at != groups.items.end())
    *at = value;
  else
    addGroups(groups, {value});
}

bool isModelled(const OdDbSection& section) {
  constexpr std::string_view kModelled[] = {"", "HEADER", "TABLES", "BLOCKS", "ENTITIES"};
  return std::find(std::begin(kModelled), std::end(kModelled), section.name) != std::end(kModelled);
}

bool hasShortCodes(const OdDbStore& store) {
  return DxfStoreWriter::styleOf(store).form == DxfStyle::Form::kBinaryShortCodes;
}

class Upgrade {
public:
  explicit Upgrade(OdDbDatabase& database)
      : m_database(database), m_store(database.store()), m_blankDatabase(OdDbDatabase::createBlank()),
        m_blank(m_blankDatabase->store()) {}

  void run() {
    findOwners();
    completeTables();
    completeSpaces();
    odDbVisitAll(m_store, [](OdDbStub* stub) { dxfUpgradeRecord(stub); });
    completeDictionaries();
    translateCopies();
    linkLayouts();
    completeLayers();
    dxfUpgradeHeader(m_store, m_blank);
    leaveShortCodes();
    addClasses();
  }

private:
  void findOwners();
  void completeTables();
  void completeSpaces();
  void nameSpace(OdDbStub* record, const OdString& name);
  void completeDictionaries();
  void merge(const OdDbStub* model, OdDbStub* dictionary);
  OdDbStub* copy(OdDbStub* model, OdDbStub* owner);
  OdDbStub* copyObject(OdDbStub* model, OdDbStub* owner);
  void translateCopies();
  void linkLayouts();
  void completeLayers();
  void leaveShortCodes();
  void addClasses();

  OdDbDatabase& m_database;
  OdDbStore& m_store;
  OdDbDatabasePtr m_blankDatabase; ///< what a drawing consists of at least
  OdDbStore& m_blank;
  std::unordered_map<OdUInt64, OdDbStub*> m_copies; ///< by handle in the blank drawing
  std::vector<OdDbStub*> m_copied;                  ///< whose references are those of the blank drawing
};

/// Release 13 leaves it to dictionaries to tell what they own.
void Upgrade::findOwners() {
  const OdDbStub* root = m_database.getNamedObjectsDictionaryId().stub();
  odDbVisitAll(m_store, [&](OdDbStub* stub) {
    const auto own = [&](OdDbStub* object) {
      if (object && object != root && object != stub && !object->owner) object->owner = stub;
    };
    if (isDictionary(stub))
      for (const Entry& entry : entriesOf(stub)) own(entry.object);
    const OdDbGroupListPtr groups = stub->content();
    const auto [first, last] = odDbGroups::braces(*groups, "{ACAD_XDICTIONARY");
    for (int i = first; first >= 0 && i < last; ++i)
      if ((*groups)[i].kind == OdDbGroupKind::kHandle) own(m_store.find((*groups)[i].handle));
  });
}

// --- tables and spaces ---

OdDbStub* Upgrade::copy(OdDbStub* model, OdDbStub* owner) {
  const OdDbType& type = m_blank.types[model->type];
  const bool entity = (model->flags & OdDbStub::kEntity) != 0;
  const OdUInt16 index = type.dxfName == "TABLE"
                             ? m_store.tableTypeIndex(OdDbStore::recordName(*model->content()).toUtf8())
                             : m_store.typeIndex(type.dxfName, entity);
  OdDbStub* stub = m_store.makeStub(index, 0, owner);
  if (!stub) throw OdError(eHandleExists);
  const OdDbGroupListPtr groups = copyOf(model);
  groups->own();
  stub->setGroups(groups);
  m_copies[model->handle] = stub;
  m_copied.push_back(stub);
  return stub;
}

void Upgrade::completeTables() {
  for (const auto& [name, model] : m_blank.tables) {
    OdDbStub* table = m_store.table(name);
    if (!table) {
      table = copy(model, nullptr);
      m_store.tables.emplace_back(name, table);
    }
    m_copies[model->handle] = table;
    if (name == "BLOCK_RECORD") continue;
    for (OdDbStub* record = model->children ? model->children->first : nullptr; record;
         record = record->next) {
      OdDbStub* known = m_store.findRecord(table, OdDbStore::recordName(*record->content()).str());
      m_copies[record->handle] = known;
      if (known) continue;
      OdDbStub* added = copy(record, table);
      OdDbStubList* records = m_store.childrenOf(table);
      records->link(added, records->last);
      m_store.refreshRecordName(added);
    }
  }
  const auto rank = [this](const std::string& name) {
    return std::find_if(m_blank.tables.begin(), m_blank.tables.end(),
                        [&name](const auto& table) { return table.first == name; }) -
           m_blank.tables.begin();
  };
  std::stable_sort(m_store.tables.begin(), m_store.tables.end(),
                   [&rank](const auto& a, const auto& b) { return rank(a.first) < rank(b.first); });
}

void Upgrade::completeSpaces() {
  for (const bool paper : {true, false}) {
    const OdString name = paper ? L"*Paper_Space" : L"*Model_Space";
    if (!m_store.space(paper)) {
      const OdDbBlockTablePtr table = m_database.getBlockTableId().safeOpenObject(OdDb::kForWrite);
      const OdDbBlockTableRecordPtr record = OdDbBlockTableRecord::createObject();
      record->setName(name);
      table->add(record);
    }
    OdDbStub* record = m_store.space(paper);
    if (!m_store.blockEnds[record].begin)
      OdDbBlockTableRecordPtr(OdDbObjectId(record).safeOpenObject(OdDb::kForWrite))->appended();
    nameSpace(record, name);
    m_copies[m_blank.space(paper)->handle] = record;
    // Both stand before all other blocks.
    std::vector<OdDbStub*>& order = m_store.blockOrder;
    const auto at = std::find(order.begin(), order.end(), record);
    std::rotate(order.begin(), at, at + 1);
  }
}

void Upgrade::nameSpace(OdDbStub* record, const OdString& name) {
  constexpr int kFlagsCode = 70;
  OdDbStub* begin = m_store.blockEnds[record].begin;
  for (OdDbStub* stub : {record, begin}) {
    const OdDbGroupListPtr groups = copyOf(stub);
    for (OdDbGroup& group : groups->items) {
      if (group.code >= kFirstXDataCode) break;
      if (group.code == kNameCode || (stub == begin && group.code == kEntryCode))
        group = groups->makeText(group.code, name);
      if (stub == begin && group.code == kFlagsCode) group.integer = 0;
    }
    replaceGroups(stub, groups);
  }
}

// --- dictionaries ---

OdDbStub* Upgrade::copyObject(OdDbStub* model, OdDbStub* owner) {
  OdDbStub* stub = copy(model, owner);
  stub->flags |= OdDbStub::kInObjects;
  m_store.objects.link(stub, m_store.objects.last);
  if (isDictionary(model))
    for (const Entry& entry : entriesOf(model)) copyObject(entry.object, stub);
  return stub;
}

/// Gives a dictionary the entries of its model that it lacks, or has of another kind.
void Upgrade::merge(const OdDbStub* model, OdDbStub* dictionary) {
  m_copies[model->handle] = dictionary;
  const std::vector<Entry> known = entriesOf(dictionary);
  const OdDbGroupListPtr groups = copyOf(dictionary);
  for (const Entry& wanted : entriesOf(model)) {
    const auto same = std::find_if(known.begin(), known.end(), [&wanted](const Entry& entry) {
      return entry.name.iCompare(wanted.name) == 0;
    });
    OdDbStub* found =
        same == known.end() || !same->object || same->object->isErased() ? nullptr : same->object;
    if (found && found->dxfName() == wanted.object->dxfName()) {
      if (isDictionary(found)) merge(wanted.object, found);
      m_copies[wanted.object->handle] = found;
      continue;
    }
    const OdDbStub* added = copyObject(wanted.object, dictionary);
    if (found) found->flags |= OdDbStub::kErased;
    if (same != known.end())
      (*groups)[same->index + 1].handle = added->handle;
    else
      addGroups(*groups,
                {groups->makeText(kEntryCode, wanted.name), OdDbGroup::ofHandle(kSoftEntry, added->handle)});
  }
  replaceGroups(dictionary, groups);
}

void Upgrade::completeDictionaries() {
  OdDbStub* model = m_blankDatabase->getNamedObjectsDictionaryId().stub();
  OdDbStub* root = m_database.getNamedObjectsDictionaryId().stub();
  if (root)
    merge(model, root);
  else
    copyObject(model, nullptr);
}

void Upgrade::translateCopies() {
  for (OdDbStub* stub : m_copied)
    for (OdDbGroup& group : stub->groups->items) {
      if (group.kind != OdDbGroupKind::kHandle || group.isIdentity()) continue;
      const auto copied = m_copies.find(group.handle);
      group.handle = copied == m_copies.end() || !copied->second ? 0 : copied->second->handle;
    }
}

/// Block records and layouts refer to each other.
void Upgrade::linkLayouts() {
  constexpr int kLayoutCode = 340;
  constexpr int kBlockCode = 330;
  for (const bool paper : {false, true}) {
    OdDbStub* record = m_store.space(paper);
    const OdDbGroupListPtr modelGroups = m_blank.space(paper)->content();
    const auto link = std::find_if(modelGroups->items.begin(), modelGroups->items.end(),
                                   [](const OdDbGroup& group) { return group.code == kLayoutCode; });
    OdDbStub* layout = m_copies.at(link->handle);
    const OdDbGroupListPtr recordGroups = copyOf(record);
    setGroup(*recordGroups, OdDbGroup::ofHandle(kLayoutCode, layout->handle));
    replaceGroups(record, recordGroups);
    const OdDbGroupListPtr layoutGroups = copyOf(layout);
    const OdDbSubclass section{"AcDbLayout", {}};
    if (const int at = odDbGroups::find(*layoutGroups, section, kBlockCode); at >= 0)
      (*layoutGroups)[at].handle = record->handle;
    replaceGroups(layout, layoutGroups);
  }
}

void Upgrade::completeLayers() {
  constexpr int kLineWeightCode = 370;
  constexpr int kPlotStyleCode = 390;
  const OdDbStub* styles = m_database.getPlotStyleNameDictionaryId(false).stub();
  const std::vector<Entry> entries = entriesOf(styles);
  const OdUInt64 normal = entries.empty() || !entries.front().object ? 0 : entries.front().object->handle;
  const OdDbSubclass section{"AcDbLayerTableRecord", {}};
  const OdDbStubList* layers = m_store.childrenOf(m_store.table("LAYER"));
  for (OdDbStub* layer = layers->first; layer; layer = layer->next) {
    const OdDbGroupListPtr groups = copyOf(layer);
    if (odDbGroups::find(*groups, section, kLineWeightCode) < 0)
      addGroups(*groups, {OdDbGroup::ofInteger(kLineWeightCode, OdDb::kLnWtByLwDefault)});
    if (odDbGroups::find(*groups, section, kPlotStyleCode) < 0)
      addGroups(*groups, {OdDbGroup::ofHandle(kPlotStyleCode, normal)});
    replaceGroups(layer, groups);
  }
}

// --- form ---

/// Release 2000 has no binary form with short codes. By now every object has groups of its own, so the
/// drawing can go on in text form; what would not fit there are comments, which binary files hardly have.
void Upgrade::leaveShortCodes() {
  if (!hasShortCodes(m_store)) return;
  std::erase_if(m_store.sections, [](const OdDbSection& section) { return section.name.empty(); });
  for (OdDbSection& section : m_store.sections) section = {section.name, {}};
  m_store.tail = {};
  m_store.tableTails.clear();
  m_store.parser = nullptr;
}

// --- classes ---

/// Declares the kinds of objects that were added, behind the declarations of the drawing.
void Upgrade::addClasses() {
  constexpr std::string_view kAdded[] = {"ACDBDICTIONARYWDFLT", "ACDBPLACEHOLDER", "LAYOUT"};
  std::vector<OdDbSection>& sections = m_store.sections;
  auto classes = std::find_if(sections.begin(), sections.end(),
                              [](const OdDbSection& section) { return section.name == "CLASSES"; });
  const auto text = std::make_shared<std::string>();
  if (classes != sections.end()) text->assign(classes->raw);
  const std::unique_ptr<DxfOutput> output = DxfOutput::create(
      [&text](std::string_view bytes) { text->append(bytes); }, DxfStoreWriter::styleOf(m_store));
  OdDbDxfFileFiler filer(*output, static_cast<const OdDbDxfTextCodec&>(*m_store.codec), &m_database);
  const std::string before = *text;
  for (const DxfClassRecord& known : dxfClassRecords()) {
    const bool isAdded = std::find(std::begin(kAdded), std::end(kAdded), known.record) != std::end(kAdded);
    if (isAdded && before.find(known.record) == std::string::npos) dxfWriteClass(filer, known, OdDb::vAC15);
  }
  output->finish();
  if (classes == sections.end()) {
    classes = std::find_if(sections.begin(), sections.end(), [](const OdDbSection& section) {
      return !section.name.empty() && section.name != "HEADER";
    });
    classes = sections.insert(classes, {"CLASSES", {}});
  }
  classes->raw = *text;
  m_store.image =
      std::make_shared<std::pair<std::shared_ptr<void>, std::shared_ptr<std::string>>>(m_store.image, text);
}

// --- names ---

/// Old releases let entities name layers and styles that have no record, and names hold any character.
void settleNames(OdDbDatabase& database) {
  OdDbDxfFindings findings; // nobody asked for them
  AuditContext context(database, OdDbAuditMode::repair, findings);
  AuditNames names(context);
  names.checkRecords();
  odDbVisitAll(database.store(), [&](OdDbStub* stub) {
    if (stub->isErased()) return;
    AuditEdits edits;
    names.checkObject(stub, *stub->content(), edits);
    context.apply(stub, edits);
  });
  names.checkHeader();
  names.makeMissing();
}

} // namespace

void odDbUpgradeTo2000(OdDbDatabase& database) {
  OdDbStore& store = database.store();
  if (store.version >= OdDb::vAC15)
    throw OdError(eNotApplicable, L"Only drawings of releases before 2000 can be saved as release 2000.");
  if (database.numActiveTransactions() > 0)
    throw OdError(eNotApplicable, L"The release cannot change while a transaction is open.");
  if (hasShortCodes(store) && !std::all_of(store.sections.begin(), store.sections.end(), isModelled))
    throw OdError(eNotApplicable, L"The binary drawing has sections that release 2000 cannot take over.");
  const bool wasRecording = store.undo.isRecording();
  store.undo.setRecording(false);
  Upgrade(database).run();
  store.version = OdDb::vAC15;
  store.hasHandles = store.tableRecordsHaveHandles = store.hasMarkers = store.hasBlockRecords = true;
  settleNames(database);
  store.undo.setRecording(wasRecording);
  // Saying so with a record: the drawing is not the one that was last saved.
  OdDbGroupListPtr seed(new OdDbGroupList);
  seed->append(OdDbGroup::ofHandle(5, store.nextHandle));
  store.setHeaderVariable("$HANDSEED", seed);
  store.undo.clear();
}
